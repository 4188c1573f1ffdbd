#!/usr/bin/env python3
"""What docs/checkComments.py reports of a header, line by line, and what it leaves alone."""

import pathlib
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]

HEADER = r"""#pragma once

#define EACH(DO) \
    DO(1)

namespace room {
QV_MACRO_ALONE

/// Says it.
/// @return The sum.
int said(int a);

/// Silent, without parameters.
int silent();

/// Silent, with one.
/// @param a A number; a { in a comment opens nothing.
inline int silentToo(int a = '{')
{
    return a;
}

/// Returns nothing.
void nothing();

constexpr int value = said(3);
int refused(char) = delete;

/// A class.
template <typename T, int N = 2>
class Box
{
    int hidden() { return 1; }

public:
    Box();
    ~Box();
    Box(Box const&) = delete;

    /// @return The size.
    int size() const { return "}"[0]; }
    /// @copydoc size() const
    int length() const;
    /// @copydoc fill()
    int room() const;
    /// Fills it.
    void fill();

    /// Compares.
    bool operator==(Box const& other) const { return true; }
    /// Calls.
    T operator()(int a);
    /// Converts.
    operator T*() const;
    /// Assigns.
    Box& operator=(Box const&) = default;
    /// A long one,
    template <typename U>
    requires(sizeof(U) == N) auto view(U const& u, // with a note;
                                       T (&array)[2]) const -> U;

    int text[sizeof(T{}) + 1]; ///< A field.
    [[maybe_unused]] int (*call)(int);

protected:
    int kept();
};

struct Open
{
    int shown();
};

class _qvString : public Box<int>
{
public:
    /// \name Order
    /// By value.
    /// @{

    /// Compares.
    /// @return An order.
    int compare(_qvString const& other) const;

    /// @}

    /// Not in a task.
    void refill();

    /// \name Orders
    /// @{

    /// In none that there is.
    void reorder();
    void reorder(int) = delete;

    /// @}

private:
    void inner();
};
} // namespace room
"""

RESULT = "returns something, and no @return says what"
TASK = "stands under no task of docs/stringPages.py (\\name ... @{)"
EXPECTED = [
    (14, "silent", RESULT),
    (18, "silentToo", RESULT),
    (45, "room", RESULT),
    (50, "operator==", RESULT),
    (52, "operator()", RESULT),
    (54, "operator T*", RESULT),
    (56, "operator=", RESULT),
    (58, "view", RESULT),
    (71, "shown", RESULT),
    (88, "refill", TASK),
    (94, "reorder", TASK),
]


def reported(*headers):
    command = [sys.executable, "-B", ROOT / "docs/checkComments.py", *headers]
    return subprocess.run(command, capture_output=True, text=True, check=False)


with tempfile.NamedTemporaryFile("w", suffix=".h") as header:
    header.write(HEADER)
    header.flush()
    found = reported(header.name)
    expected = "".join(f"{header.name}:{line}: {name} {what}\n" for line, name, what in EXPECTED)
failed = False
for what, run, output, status in (("the example", found, expected, 1), ("the tree", reported(), "", 0)):
    if (run.stdout, run.returncode) != (output, status) or run.stderr:
        print(f"of {what} it says {run.returncode} and\n{run.stdout}{run.stderr}expected\n{output}")
        failed = True
sys.exit(failed)
