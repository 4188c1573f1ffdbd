#include "tests/strings/laid.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace strings {

void addImages8(Images& images);
void addImages16(Images& images);

namespace {

Unit unitAt(Image const& image, Bytes const& bytes, long long position)
{
    auto const size = static_cast<long long>(image.unitSize);
    auto const at = static_cast<long long>(image.textAt) + size * position;
    auto const byteAt = [&bytes](long long i) {
        bool const inside = i >= 0 && i < static_cast<long long>(bytes.size());
        return inside ? unsigned{bytes[static_cast<std::size_t>(i)]} : 0U;
    };
    return static_cast<Unit>(size == 1 ? byteAt(at) : byteAt(at) | byteAt(at + 1) << 8U);
}

testing::AssertionResult wrong(std::string const& what, Value const& value)
{
    return testing::AssertionFailure()
           << what << "; length " << value.length() << ", text \"" << shown(value.text()) << '"';
}

Images select(bool (*isWanted)(Image const&))
{
    Images images = allImages();
    std::erase_if(images, [=](Image const* image) { return !isWanted(*image); });
    return images;
}

} // namespace

bool Image::fitsOne(Text text) const
{
    return text.size() <= capacity &&
           (unitSize == 2 || std::all_of(text.begin(), text.end(), [](Unit u) { return u < 256; }));
}

int Value::length() const
{
    return bytes[image->lengthAt] | bytes[image->lengthAt + 1] << 8;
}

std::u16string Value::units(long long start, std::size_t count) const
{
    std::u16string units(count, u'\0');
    for (std::size_t i = 0; i < count; ++i)
        units[i] = unitAt(*image, bytes, start + static_cast<long long>(i));
    return units;
}

std::u16string Value::text() const
{
    return units(0, std::min(static_cast<std::size_t>(length()), image->capacity + 1));
}

AnyString::AnyString(Image const& image)
    : ownImage(&image),
      storage(room + image.size + room, guardByte)
{}

void* AnyString::staleStorage()
{
    return std::memset(object(), staleByte, image().size);
}

void const* AnyString::textAt(std::size_t index) const
{
    return object() + image().textAt + image().unitSize * index;
}

testing::AssertionResult AnyString::guardsStand() const
{
    for (std::size_t i = 0; i < storage.size(); ++i) {
        bool const isInside = i >= room && i < room + image().size;
        if (!isInside && storage[i] != guardByte)
            return testing::AssertionFailure()
                   << "byte " << static_cast<long>(i) - static_cast<long>(room)
                   << " relative to an object of " << image().size << " bytes is now "
                   << int{storage[i]};
    }
    return testing::AssertionSuccess();
}

Laid::Laid(Image const& image, Text text, unsigned char rest) : string(image.make())
{
    lay(text, rest);
}

Laid& Laid::lay(Text text, unsigned char rest)
{
    Image const& image = string->image();
    std::memset(string->object(), rest, image.size);
    return stale(0, std::u16string(text) + u'\0').layLength(text.size());
}

Laid& Laid::layLength(std::size_t length)
{
    auto* const field = string->object() + string->image().lengthAt;
    field[0] = static_cast<unsigned char>(length & 0xFFU);
    field[1] = static_cast<unsigned char>(length >> 8U & 0xFFU);
    return *this;
}

Laid& Laid::laySpare(unsigned char byte)
{
    std::memset(string->object() + string->image().spareAt, byte, string->image().spareSize);
    return *this;
}

Laid& Laid::stale(std::size_t index, Text units)
{
    Bytes const bytes = stored(string->image(), units);
    Image const& image = string->image();
    auto* const at = string->object() + image.textAt + image.unitSize * index;
    std::copy(bytes.begin(), bytes.end(), at);
    return *this;
}

Laid stringOf(Image const& image, Text text)
{
    return {image, text, 0};
}

Bytes stored(Image const& image, Text text)
{
    Bytes bytes;
    bytes.reserve(image.unitSize * text.size());
    for (Unit const unit : text) {
        bytes.push_back(static_cast<unsigned char>(unit & 0xFFU));
        if (image.unitSize == 2)
            bytes.push_back(static_cast<unsigned char>(unit >> 8U));
        else
            EXPECT_LT(unit, 256) << "an 8-bit string cannot hold " << shown(text);
    }
    return bytes;
}

std::vector<char> unterminated(std::string_view bytes)
{
    return {bytes.begin(), bytes.end()};
}

Bytes imageOf(Image const& image, std::size_t length, Text text, unsigned char rest,
              unsigned char spare)
{
    Bytes bytes(image.size, rest);
    std::fill_n(bytes.begin() + static_cast<long>(image.spareAt), image.spareSize, spare);
    Bytes const units = stored(image, text);
    std::copy(units.begin(), units.end(), bytes.begin() + static_cast<long>(image.textAt));
    bytes[image.lengthAt] = static_cast<unsigned char>(length & 0xFFU);
    bytes[image.lengthAt + 1] = static_cast<unsigned char>(length >> 8U);
    return bytes;
}

testing::AssertionResult holds(Value const& value, Text text)
{
    if (value.length() != static_cast<int>(text.size()))
        return wrong("length is not that of \"" + shown(text) + '"', value);
    if (value.text() != text)
        return wrong("text is not \"" + shown(text) + '"', value);
    if (value.units(static_cast<long long>(text.size()), 1)[0] != 0)
        return wrong("no terminator", value);
    return testing::AssertionSuccess();
}

testing::AssertionResult areaIs(Value const& value, std::size_t length, Text text,
                                unsigned char rest)
{
    Image const& image = *value.image;
    if (value.length() != static_cast<int>(length))
        return wrong("length is not " + std::to_string(length), value);
    std::u16string expected(text);
    expected.resize(image.capacity + 1,
                    static_cast<Unit>(image.unitSize == 1 ? rest : rest * 0x0101));
    auto const area = value.units(0, image.capacity + 1);
    for (std::size_t i = 0; i <= image.capacity; ++i)
        if (area[i] != expected[i])
            return wrong("text[" + std::to_string(i) + "] is " + shown(area.substr(i, 1)) +
                             " instead of " + shown(expected.substr(i, 1)),
                         value);
    return testing::AssertionSuccess();
}

testing::AssertionResult isZeroedBut(Value const& value, Text text)
{
    if (value.image->unitSize == 1)
        return areaIs(value, text.size(), text, 0);
    if (value.bytes != imageOf(*value.image, text.size(), text, 0, 0))
        return wrong("not the clean image of \"" + shown(text) + '"', value);
    return testing::AssertionSuccess();
}

testing::AssertionResult became(Laid const& receiver, std::size_t length, Text text)
{
    Value const value = *receiver;
    auto const area = areaIs(value, length, text, staleByte);
    if (!area)
        return area;
    for (std::size_t i = 0; i < value.image->spareSize; ++i)
        if (value.bytes[value.image->spareAt + i] != staleByte)
            return wrong("a spare byte was written", value);
    return receiver.guardsStand();
}

std::string shown(Text text)
{
    std::string line;
    for (Unit const unit : text) {
        if (unit >= 0x20 && unit < 0x7F) {
            line += static_cast<char>(unit);
        } else {
            char code[8];
            std::snprintf(code, sizeof code, "<%04X>", static_cast<unsigned>(unit));
            line += code;
        }
    }
    return line;
}

std::u16string letters(std::size_t count)
{
    std::u16string text(count, u'a');
    Unit* const units = text.data(); // tests make texts of 128 KB, and operator[] is a call here
    for (std::size_t i = 0; i < count; ++i)
        units[i] = static_cast<Unit>(u'a' + i % 26);
    return text;
}

std::string narrowed(Text text)
{
    std::string bytes(text.size(), '\0');
    char* byte = bytes.data();
    Unit const* unit = text.data();
    for (char* const end = byte + text.size(); byte != end; ++byte, ++unit)
        *byte = static_cast<char>(*unit);
    return bytes;
}

std::u16string upperOf(Text text)
{
    std::u16string folded(text);
    for (Unit& unit : folded)
        unit = upperOf(unit);
    return folded;
}

std::u16string lowerOf(Text text)
{
    std::u16string folded(text);
    for (Unit& unit : folded)
        unit = lowerOf(unit);
    return folded;
}

Images allImages()
{
    Images images;
    addImages8(images);
    addImages16(images);
    return images;
}

Images images8()
{
    Images images;
    addImages8(images);
    return images;
}

Images images16()
{
    Images images;
    addImages16(images);
    return images;
}

Images bytePairImages()
{
    return select([](Image const& image) {
        return image.capacity <= 7 || image.capacity == 10 || image.capacity == 125 ||
               (image.capacity == 250 && image.unitSize == 1);
    });
}

Images smallImages()
{
    return select([](Image const& image) { return image.capacity <= 15; });
}

Image const& imageNamed(std::string_view family, std::size_t capacity)
{
    for (Image const* image : allImages())
        if (image->family == family && image->capacity == capacity)
            return *image;
    ADD_FAILURE() << "no image " << family << ' ' << capacity;
    std::abort();
}

std::string imageName(testing::TestParamInfo<Image const*> const& info)
{
    return info.param->family + ('_' + std::to_string(info.param->capacity));
}

} // namespace strings
