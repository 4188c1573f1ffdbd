#pragma once

#include "qv/strings/core/run.h"

#include <cstring>
#include <type_traits>

namespace qvStrings {

/// The greatest capacity of all fixed strings, in units: a copy on the stack must hold so many.
constexpr unsigned maxCapacity = 5000;

/// The same of the 16-bit strings alone.
constexpr unsigned maxWideCapacity = 2500;

/// The same of the strings of this unit.
template <typename Unit>
constexpr unsigned maxCapacityOf = sizeof(Unit) == 1 ? maxCapacity : maxWideCapacity;

/// Where the parts of a fixed string are in its object. Offsets and size in bytes, the capacity in
/// units. Eight bytes, so that a TextRef is passed in two registers.
struct Layout
{
    unsigned short textAt;
    unsigned short lengthAt;
    unsigned short capacity;
    unsigned short objectSize;
};

/// A string object of any image and capacity as the core sees it: its first byte and its layout.
/// `Unit` is `char` or `unsigned short`, const for a string that is only read.
///
/// All access goes through the bytes of the whole object and never through a member array:
/// some rules let text run into the length behind it (older images), which the compiler
/// must not take for two unrelated objects.
template <typename Unit>
class TextRef
{
    using Byte = std::conditional_t<std::is_const_v<Unit>, unsigned char const, unsigned char>;

public:
    using Value = std::remove_const_t<Unit>;

    TextRef(Byte* object, Layout layout) : object_(object), layout_(layout) {}

    /// A string that may be written may be read.
    operator TextRef<Value const>() const { return {object_, layout_}; }

    Unit* text() const { return reinterpret_cast<Unit*>(object_ + layout_.textAt); }
    unsigned capacity() const { return layout_.capacity; }
    Byte* object() const { return object_; }
    Layout const& layout() const { return layout_; }

    /// The length, at most the capacity. Strings are in shared records, so another process may have
    /// written any number there: this bound keeps every member inside the object.
    unsigned length() const
    {
        unsigned const stored = storedLength();
        return stored < capacity() ? stored : capacity();
    }

    /// The length as it is stored, for the few members whose contract is to trust it.
    unsigned storedLength() const
    {
        unsigned short stored;
        std::memcpy(&stored, object_ + layout_.lengthAt, sizeof stored);
        return stored;
    }

    /// Another object of the same image.
    TextRef beside(Byte* object) const { return {object, layout_}; }

    /// Units that still fit.
    unsigned room() const { return capacity() - length(); }

    /// The text.
    Run<Value> run() const { return {text(), length()}; }

    /// Stores the length (its low 16 bits) and nothing else.
    void storeLength(unsigned length) const
    {
        auto const stored = static_cast<unsigned short>(length);
        std::memcpy(object_ + layout_.lengthAt, &stored, sizeof stored);
    }

    /// Writes the terminator where the stored length says.
    void terminate() const { text()[storedLength()] = 0; }

    /// Stores the length and writes the terminator behind it.
    void endAt(unsigned length) const
    {
        storeLength(length);
        text()[static_cast<unsigned short>(length)] = 0; // as stored, without reading it back
    }

private:
    Byte* object_;
    Layout layout_;
};

/// True when both are one and the same object.
template <typename Unit, typename Other>
bool same(TextRef<Unit> const& a, TextRef<Other> const& b)
{
    return a.object() == b.object();
}

} // namespace qvStrings
