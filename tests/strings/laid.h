#pragma once

/// The five string templates as one type, so that a rule which all of them keep is tested once, by
/// code that is compiled once. An Image says where the fields of one class are; a Laid is an object
/// of that class between guard bytes, and the checks look at its bytes without asking any member.
///
/// A text is written in 16-bit units. The 8-bit images hold their low bytes; a row with a greater
/// unit does not fit them.

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace strings {

using Bytes = std::vector<unsigned char>;
using Unit = char16_t;
using Text = std::u16string_view;

/// Surrounds every object; nothing may ever change it.
inline constexpr unsigned char guardByte = 0xA5;
/// Fills the storage before a string is laid into it, so that what is kept shows.
inline constexpr unsigned char staleByte = 0xAA;

/// A null text that no overload for another pointer can claim.
inline constexpr char const* nullText = nullptr;
inline constexpr void const* nullUnits = nullptr;

class AnyString;

/// Where one class has its fields, and how to make an object of it.
struct Image
{
    char const* family;
    bool isCurrent;
    std::size_t unitSize;
    std::size_t capacity;
    std::size_t size;
    std::size_t lengthAt;
    std::size_t textAt;
    std::size_t spareAt;
    std::size_t spareSize;
    std::unique_ptr<AnyString> (*make)();

    /// The capacity as the members take their counts.
    int intCapacity() const { return static_cast<int>(capacity); }

    /// Whether strings of this class can hold each of the texts.
    template <typename... Texts>
    bool fits(Texts const&... texts) const
    {
        return (fitsOne(Text(texts)) && ...);
    }

    /// What is left of a text that has to go into this class.
    std::u16string cut(Text text) const { return std::u16string(text.substr(0, capacity)); }

private:
    bool fitsOne(Text text) const;
};

/// All bytes of an object, and what they mean.
struct Value
{
    Image const* image;
    Bytes bytes;

    int length() const;

    /// Units by their position in the text. Positions below 0 and behind the text reach the other
    /// fields, and bytes outside of the object read as zero.
    std::u16string units(long long start, std::size_t count) const;

    /// The units in use, zeros inside included. A length above the capacity is cut at the end of
    /// the text area.
    std::u16string text() const;

    /// All units below the capacity, whatever the length says.
    std::u16string area() const { return units(0, image->capacity); }
};

/// The members that all five templates have. Operators have names: `assign` is =, `append` +=,
/// `plus` +, `equals` ==, `differs` !=. A member that returns a reference gives its address.
class AnyString
{
public:
    virtual ~AnyString() = default;
    AnyString(AnyString const&) = delete;
    AnyString& operator=(AnyString const&) = delete;

    Image const& image() const { return *ownImage; }
    unsigned char* object() { return storage.data() + room; }
    unsigned char const* object() const { return storage.data() + room; }
    void const* textAt(std::size_t index = 0) const;

    Bytes bytes() const { return {object(), object() + image().size}; }
    /// The guard bytes behind the object, for the few writes that are laid down to pass its end.
    Bytes behind() const { return {object() + image().size, storage.data() + storage.size()}; }
    operator Value() const { return {ownImage, bytes()}; }

    /// True while all guard bytes are what they were.
    testing::AssertionResult guardsStand() const;

    // The object begins anew: it is constructed on storage full of stale bytes.
    virtual void construct() = 0;
    virtual void construct(AnyString const& other) = 0;
    virtual void construct(char const* s) = 0;
    virtual void construct(char const* s, int count) = 0;

    virtual void clear() = 0;
    virtual void clearUnused() = 0;
    virtual void calcLength() = 0;
    virtual void setLength(short n) = 0;
    virtual bool isEmpty() const = 0;
    virtual bool hasData() const = 0;
    virtual Value createCharString(Unit c, int n) const = 0;

    virtual void assign(AnyString const& other) = 0;
    virtual void assign(char const* s) = 0;
    virtual void assign(Unit c) = 0;
    virtual void add(AnyString const& other) = 0;
    virtual void add(char const* s) = 0;
    virtual void add(void const* units, unsigned n) = 0;
    virtual void append(AnyString const& other) = 0;
    virtual void append(Unit c) = 0;
    virtual void append(char c) = 0;
    virtual void append(char const* s) = 0;
    virtual Value plus(AnyString const& other) = 0;
    virtual Value plus(char c) = 0;
    virtual Value combined(AnyString const& other) const = 0;
    virtual Value combined(char const* s) const = 0;

    virtual bool equals(AnyString const& other) const = 0;
    virtual bool equals(char const* s) const = 0;
    virtual bool differs(AnyString const& other) const = 0;
    virtual bool differs(char const* s) const = 0;
    virtual bool isLess(AnyString const& other) const = 0;
    virtual bool isGreater(AnyString const& other) const = 0;
    virtual int compare(AnyString const& other) const = 0;
    virtual int compareSameCase(AnyString const& other) const = 0;
    virtual bool isEqual(AnyString const& other) const = 0;
    virtual bool isEqual(void const* units, int n) const = 0;
    virtual bool isEqualSameCase(AnyString const& other) const = 0;
    virtual bool isEqualSameCase(void const* units, int n) const = 0;
    virtual bool isEqualUpperCaseInput(AnyString const& other) const = 0;
    virtual bool isEqualLowerCaseInput(AnyString const& other) const = 0;

    virtual int indexOf(AnyString const& pattern, int start) const = 0;
    virtual int indexOf(Unit c, int start) const = 0;
    virtual int indexOfCaseSen(AnyString const& pattern, int start) const = 0;
    virtual int indexOfCaseSen(Unit c, int start) const = 0;
    virtual int lastIndexOf(Unit c, int start) const = 0;
    virtual int indexOfFirstOcc(AnyString const& a, AnyString const& b, int* which) const = 0;
    virtual int indexOfFirstOcc(AnyString const& a, AnyString const& b, AnyString const& c,
                                AnyString const& d, AnyString const& e, AnyString const& f,
                                int* which) const = 0;
    virtual int count(char c) const = 0;
    virtual int countCaseSen(char c) const = 0;
    virtual bool contains(AnyString const& pattern) const = 0;
    virtual bool contains(char c) const = 0;
    virtual bool contains(char const* s) const = 0;
    virtual bool containsCaseSen(AnyString const& pattern) const = 0;
    virtual bool containsCaseSen(char const* s) const = 0;
    virtual bool containsCaseSen(char const* s, int n) const = 0;
    virtual bool containsUpperCaseInput(AnyString const& pattern) const = 0;
    virtual bool containsUpperCaseInput(char const* s) const = 0;

    virtual bool startsWith(AnyString const& pattern) const = 0;
    virtual bool startsWith(Unit c) const = 0;
    virtual bool startsWith(char const* s) const = 0;
    virtual bool startsWith(char const* s, int n) const = 0;
    virtual bool startsWithCaseSen(AnyString const& pattern) const = 0;
    virtual bool startsWithCaseSen(char const* s) const = 0;
    virtual bool endsWith(AnyString const& pattern) const = 0;
    virtual bool endsWith(Unit c) const = 0;
    virtual bool endsWith(char c) const = 0;
    virtual bool endsWith(char const* s) const = 0;
    virtual bool endsWith(char const* s, int n) const = 0;

    virtual void makeUpper() = 0;
    virtual void makeLower() = 0;
    virtual void trim() = 0;
    virtual void const* replace(Unit a, Unit b) = 0;
    virtual void const* replace(AnyString const& from, AnyString const& to) = 0;
    virtual void const* replaceCaseSen(AnyString const& from, AnyString const& to) = 0;
    virtual void const* remove(AnyString const& pattern) = 0;
    virtual void const* removeCaseSens(AnyString const& pattern) = 0;
    virtual Value remove(Unit c) = 0;
    virtual void remove(int start, int count) = 0;
    virtual void insert(int position, AnyString const& s) = 0;

    // With plain text where a string is asked for.
    virtual void replace(char const* from, char const* to) = 0;
    virtual void replaceCaseSen(char const* from, char const* to) = 0;
    virtual void remove(char const* pattern) = 0;
    virtual void removeCaseSens(char const* pattern) = 0;
    virtual void insert(int position, char const* s) = 0;

    virtual Value left(int n) const = 0;
    virtual Value left(Unit c, bool withSeparator) const = 0;
    virtual Value leftNCut(Unit c, bool withSeparator) = 0;
    virtual Value mid(int start, int count) const = 0;

    virtual void addSpacing(void const* units, int width) = 0;
    virtual void addSpacingC(char const* s, int width) = 0;
    virtual void addNrSpacing(long long v, signed char width) = 0;

    /// The form of `indexOf` for plain text, which the 16-bit strings alone have.
    virtual int indexOfText(char const* s) = 0;

    // The members that take a unit by reference, given a unit of the receiver itself.
    virtual void assignOwn(std::size_t c) = 0;
    virtual void appendOwn(std::size_t c) = 0;
    virtual void replaceByOwn(std::size_t a, std::size_t b) = 0;
    virtual void removeOwn(std::size_t c) = 0;
    virtual Value leftNCutByOwn(std::size_t c, bool withSeparator) = 0;

protected:
    explicit AnyString(Image const& image);

    /// The place of the object, full of stale bytes.
    void* staleStorage();

private:
    static constexpr std::size_t room = 64;
    static_assert(room % 16 == 0, "the object has to stay aligned behind its front guard");

    Image const* ownImage;
    Bytes storage;
};

/// A string that holds `text`; every byte that is no part of it, spare ones included, is `rest`.
/// It is laid without asking any member.
class Laid
{
public:
    Laid(Image const& image, Text text, unsigned char rest = staleByte);

    AnyString* operator->() { return string.get(); }
    AnyString const* operator->() const { return string.get(); }
    AnyString& operator*() { return *string; }
    AnyString const& operator*() const { return *string; }
    operator AnyString const&() const { return *string; }

    Bytes bytes() const { return string->bytes(); }
    Value value() const { return *string; }
    testing::AssertionResult guardsStand() const { return string->guardsStand(); }

    /// Begins anew with other text.
    Laid& lay(Text text, unsigned char rest = staleByte);

    /// Sets the length field alone, also to what no member would leave there.
    Laid& layLength(std::size_t length);

    /// Sets the spare bytes alone.
    Laid& laySpare(unsigned char byte);

    /// Puts units into the text area, whatever the length says.
    Laid& stale(std::size_t index, Text units);

private:
    std::unique_ptr<AnyString> string;
};

/// An argument that holds `text`; all else in it is zero.
Laid stringOf(Image const& image, Text text);

/// Units as an image holds them, alone in their block and without a terminator: a sanitizer sees
/// every read behind them.
Bytes stored(Image const& image, Text text);

/// The same for plain bytes.
std::vector<char> unterminated(std::string_view bytes);

/// The image that is expected: `text` at the start of the text area, `rest` in every text byte
/// behind it, `spare` in the spare bytes. The terminator is part of `text` or of `rest`.
Bytes imageOf(Image const& image, std::size_t length, Text text, unsigned char rest,
              unsigned char spare);

/// Length, units and terminator are those of the given text.
testing::AssertionResult holds(Value const& value, Text text);

/// The length, and the whole text area: `text` at its start and the byte `rest` in all that is
/// behind. The terminator is part of `text`. Spare bytes are not looked at.
testing::AssertionResult areaIs(Value const& value, std::size_t length, Text text,
                                unsigned char rest);

/// The value holds this text, and its text area is zero behind it. In 16 bits the spare word is
/// zero too; the spare bytes of an 8-bit result are not laid down.
testing::AssertionResult isZeroedBut(Value const& value, Text text);

/// A receiver that was laid on stale bytes now has this length and begins with these units, the
/// terminator among them. All else is what it was: the stale units behind, the spare bytes and the
/// guard bytes around.
testing::AssertionResult became(Laid const& receiver, std::size_t length, Text text);

/// A text for a message.
std::string shown(Text text);

/// `count` letters a to z, over and over: a text of any length in which a shift shows.
std::u16string letters(std::size_t count);

/// Units below 0x100 as bytes.
std::string narrowed(Text text);

/// Case folding written down a second time: of all units only ASCII letters change.
constexpr Unit upperOf(Unit unit)
{
    return unit >= u'a' && unit <= u'z' ? static_cast<Unit>(unit - 32) : unit;
}
constexpr Unit lowerOf(Unit unit)
{
    return unit >= u'A' && unit <= u'Z' ? static_cast<Unit>(unit + 32) : unit;
}
std::u16string upperOf(Text text);
std::u16string lowerOf(Text text);

/// -1, 0 or 1: of a memory comparison only the sign is defined.
constexpr int signOf(int value)
{
    return (value > 0) - (value < 0);
}

using Images = std::vector<Image const*>;

/// Every image at the capacities that matter: the smallest, odd ones and even ones, neighbours of a
/// limit, the tool's own, the targets of the conversions to 8 bits, the largest.
Images allImages();
Images images8();
Images images16();

/// The same, each template at its smallest capacities and one of hundreds: cheap enough for all
/// pairs of bytes.
Images bytePairImages();

/// Those of at most 15 units, where most texts of a test outgrow the capacity.
Images smallImages();

/// The one image of a family, such as `even8`, at a capacity.
Image const& imageNamed(std::string_view family, std::size_t capacity);

/// A test that runs over images.
class OverImages : public testing::TestWithParam<Image const*>
{
protected:
    Image const& image = *GetParam();
};

/// Names a test after image and capacity, such as even8_14.
std::string imageName(testing::TestParamInfo<Image const*> const& info);

} // namespace strings
