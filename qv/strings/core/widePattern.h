#pragma once

#include "qv/strings/core/move.h"
#include "qv/strings/core/textRef.h"

namespace qvStrings {

/// A pattern of bytes, sign-extended to the units of the 16-bit text that is searched.
class WidePattern
{
public:
    /// @param bytes At most `maxWideCapacity`; more are cut.
    explicit WidePattern(Run<char> bytes) : count_(cut(bytes, maxWideCapacity).count)
    {
        widen(units_, {bytes.units, count_}, Extension::sign);
    }

    Run<unsigned short> run() const { return {units_, count_}; }

private:
    unsigned short units_[maxWideCapacity];
    unsigned count_;
};

} // namespace qvStrings
