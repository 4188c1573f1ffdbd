#pragma once

#include "strings/capacities8.h"
#include "strings/core/width.h"
#include "strings/image8.h"
#include "strings/overlay8.h"
#include "strings/qvCharLen.h"
#include "strings/rules8.h"

#include <string>

/// The current 8-bit string: up to N characters of text without an encoding, held in the object,
/// in the image that `docs/memory-images.md` shows. Exists for the 24 capacities of
/// `capacities8.h`. An object is plain bytes: it may lie in a shared record, be copied as a
/// block, and a block of zeros is an empty string.
///
/// The members are those of `Rules8` and the ones below.
template <int N>
class _qvString8_allSize : public qvStrings::Rules8<_qvString8_allSize<N>, qvStrings::Image8<N>>
{
    static_assert(qvStrings::isCapacity8(N), "8-bit strings exist for the capacities that "
                                             "strings/capacities8.h lists, and for no other");
    using Rules = qvStrings::Rules8<_qvString8_allSize<N>, qvStrings::Image8<N>>;

public:
    using Rules::operator=;
    using Rules::operator+=;

    /// Empty, all N + 1 text bytes zero. The pad byte of an even capacity stays as it was.
    QV_KEEPS_STORAGE _qvString8_allSize() { this->clear(); }

    /// The first N characters of `s`, all text behind them zero. Null gives the empty string.
    QV_KEEPS_STORAGE _qvString8_allSize(char const* s) { this->construct(s); }

    /// `count` bytes of `s`, zero bytes included, all text behind them zero; count is taken
    /// modulo 65536 (-1 gives N characters) and cut at N. `s` must hold what is read; it may be
    /// null only with a count of 0.
    QV_KEEPS_STORAGE _qvString8_allSize(char const* s, int count)
    {
        qvStrings::assignCleared(this->ref(), s, Rules::lowCount(count));
    }

    /// The low bytes of the units of a zero-terminated 16-bit text, at most 1024 of them
    /// whatever N (see `qvCharLen`), cut at N; all text behind them zero. Null gives the empty
    /// string.
    QV_KEEPS_STORAGE _qvString8_allSize(unsigned short const* s)
    {
        if (s == nullptr)
            this->clear();
        else
            qvStrings::assignNarrowedCleared(this->ref(), s, qvCharLen(s));
    }

    /// The text that `p` views, whose length is taken as it stands: the caller knows that it is
    /// at most N, since a longer text is written past the object (`operator=` clips). Exactly
    /// its characters and the terminator are written. Does not accept null.
    QV_KEEPS_STORAGE _qvString8_allSize(_qvString8_Uni_pointer const* p)
    {
        auto const viewed = qvStrings::overlayText8(p);
        qvStrings::assignUnclipped(this->ref(), viewed.text, viewed.length);
    }

    /// Takes the first N characters of `s`; its size counts modulo 65536. Terminator.
    _qvString8_allSize& operator=(std::string const& s)
    {
        qvStrings::assign(this->ref(), s.data(), static_cast<unsigned>(s.size() & 0xFFFFu));
        return *this;
    }

    /// Takes the text that `p` views, cut at N. Terminator. Does not accept null.
    _qvString8_allSize& operator=(_qvString8_Uni_pointer* p)
    {
        return *this = static_cast<_qvString8_Uni_pointer const*>(p);
    }

    /// The same for what `asUni()` hands out; without it such an assignment would go through the
    /// constructor that does not clip.
    _qvString8_allSize& operator=(_qvString8_Uni_pointer const* p)
    {
        auto const viewed = qvStrings::overlayText8(p);
        qvStrings::assign(this->ref(), viewed.text, viewed.length);
        return *this;
    }

    /// Takes `count` bytes of `s`, zero bytes included; count is taken modulo 65536 and cut at N.
    /// Terminator. Null sets the length to 0 and nothing else.
    void fromChar(char const* s, int const& count)
    {
        if (s == nullptr)
            this->length = 0;
        else
            qvStrings::assign(this->ref(), s, Rules::lowCount(count));
    }

    /// Appends the low byte of `c`. A full string stays as it is.
    _qvString8_allSize& operator+=(unsigned short const& c)
    {
        return *this += static_cast<char>(c);
    }

    /// The text, writable; `calcLength()` takes the length from it afterwards.
    char* asChar() { return this->text; }
    char const* asChar() const { return this->text; }

    /// The same as `asChar()`, by its other name.
    char* toChar() { return this->text; }
    char const* toChar() const { return this->text; }

    /// This object as a view without a capacity.
    _qvString8_Uni_pointer const* asUni() const
    {
        return reinterpret_cast<_qvString8_Uni_pointer const*>(this);
    }
};

// Compiled once, in qvString8.cpp; small members are still inlined where they are called.
#define QV_EXTERN(N)                                                                               \
    extern template class qvStrings::Rules8<_qvString8_allSize<N>, qvStrings::Image8<N>>;          \
    extern template class _qvString8_allSize<N>;
QV_STRING8_CAPACITIES(QV_EXTERN)
#undef QV_EXTERN
