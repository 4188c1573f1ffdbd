#pragma once

#include "tests/model/byteReader.h"

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace qvTest {

// All calls work on the same few strings, so that arguments are often each other or the receiver.
inline constexpr std::size_t stringCount = 3;

template <class Model>
using StringModels = std::vector<Model>;

// The input of one call, and the strings as they are now, on which its arguments lean.
class Reading
{
public:
    explicit Reading(ByteReader& theInput) : input(theInput) {}
    virtual ~Reading() = default;

    virtual std::size_t capacity() const = 0;
    virtual std::size_t length(std::size_t string) const = 0;
    virtual std::u16string used(std::size_t string) const = 0;
    virtual bool hasStoredZero(std::size_t string) const = 0;
    virtual std::size_t unitSize() const = 0;

    int number();

    ByteReader& input;
    std::size_t receiver = 0;
    std::array<std::size_t, 6> others{}; // the strings that are arguments
    std::size_t othersTaken = 0;
    int count = 0; // the number read last: a counted text has as many units
};

template <class Model>
class ReadingOf final : public Reading
{
public:
    using Unit = typename Model::UnitType;

    ReadingOf(ByteReader& theInput, StringModels<Model> const& theModels)
        : Reading(theInput),
          models(theModels)
    {}

    std::size_t capacity() const override { return models[0].capacity(); }
    std::size_t length(std::size_t string) const override { return models[string].length(); }
    std::u16string used(std::size_t string) const override
    {
        auto const units = models[string].used();
        return {reinterpret_cast<std::make_unsigned_t<Unit> const*>(units.data()),
                reinterpret_cast<std::make_unsigned_t<Unit> const*>(units.data()) + units.size()};
    }
    bool hasStoredZero(std::size_t string) const override { return models[string].hasStoredZero(); }
    std::size_t unitSize() const override { return sizeof(Unit); }

private:
    StringModels<Model> const& models;
};

} // namespace qvTest
