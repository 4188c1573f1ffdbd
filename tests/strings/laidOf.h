#pragma once

/// Makes a template of strings known to the tests that run over all of them.

#include "tests/strings/images.h"
#include "tests/strings/laid.h"

#include <new>
#include <type_traits>

namespace strings {

template <typename S>
std::unique_ptr<AnyString> makeString();

/// The image of a class, also of one that has no members.
template <typename S>
constexpr Image fieldsOf(std::unique_ptr<AnyString> (*make)())
{
    using Its = guarded::ImageOf<S>;
    return {guarded::familyName<S>,
            guarded::isCurrent<S>,
            sizeof(S::text) / (Its::capacity + 1),
            Its::capacity,
            Its::size,
            Its::lengthAt,
            Its::textAt,
            Its::spareAt,
            Its::spareSize,
            make};
}

template <typename S>
inline constexpr Image imageFor = fieldsOf<S>(makeString<S>);

template <typename S>
class StringOf final : public AnyString
{
    using CharUnit = std::remove_extent_t<decltype(S::text)>;

    S& self() { return *std::launder(reinterpret_cast<S*>(object())); }
    S const& self() const { return *std::launder(reinterpret_cast<S const*>(object())); }
    static S const& of(AnyString const& other)
    {
        return static_cast<StringOf const&>(other).self();
    }
    static CharUnit of(Unit c) { return static_cast<CharUnit>(c); }
    static CharUnit const* of(void const* units) { return static_cast<CharUnit const*>(units); }
    /// Takes results by value only: none may be a reference to something that changes later.
    static Value valueOf(S&& string)
    {
        auto const* first = reinterpret_cast<unsigned char const*>(&string);
        return {&imageFor<S>, {first, first + sizeof(S)}};
    }

public:
    StringOf() : AnyString(imageFor<S>) { ::new (object()) S; }

    void construct() override { ::new (staleStorage()) S; }
    void construct(AnyString const& other) override { ::new (staleStorage()) S(of(other)); }
    void construct(char const* s) override { ::new (staleStorage()) S(s); }
    void construct(char const* s, int count) override { ::new (staleStorage()) S(s, count); }

    void clear() override { self().clear(); }
    void clearUnused() override { self().clearUnused(); }
    void calcLength() override { self().calcLength(); }
    void setLength(short n) override { self().setLength(n); }
    bool isEmpty() const override { return self().isEmpty(); }
    bool hasData() const override { return self().hasData(); }
    Value createCharString(Unit c, int n) const override
    {
        CharUnit unit = of(c);
        Value const result = valueOf(S::createCharString(unit, n));
        EXPECT_EQ(unit, of(c));
        return result;
    }

    void assign(AnyString const& other) override { self() = of(other); }
    void assign(char const* s) override { self() = s; }
    void assign(Unit c) override { self() = of(c); }
    void add(AnyString const& other) override { self().add(of(other)); }
    void add(char const* s) override { self().add(s); }
    void add(void const* units, unsigned n) override { self().add(of(units), n); }
    void append(AnyString const& other) override { self() += of(other); }
    void append(Unit c) override { self() += of(c); }
    void append(char c) override { self() += c; }
    void append(char const* s) override { self() += s; }
    Value plus(AnyString const& other) override { return valueOf(self() + of(other)); }
    Value plus(char c) override { return valueOf(self() + c); }
    Value combined(AnyString const& other) const override
    {
        return valueOf(self().combined(of(other)));
    }
    Value combined(char const* s) const override { return valueOf(self().combined(s)); }

    bool equals(AnyString const& other) const override { return self() == of(other); }
    bool equals(char const* s) const override { return self() == s; }
    bool differs(AnyString const& other) const override { return self() != of(other); }
    bool differs(char const* s) const override { return self() != s; }
    bool isLess(AnyString const& other) const override { return self() < of(other); }
    bool isGreater(AnyString const& other) const override { return self() > of(other); }
    int compare(AnyString const& other) const override { return self().compare(of(other)); }
    int compareSameCase(AnyString const& other) const override
    {
        return self().compareSameCase(of(other));
    }
    bool isEqual(AnyString const& other) const override { return self().isEqual(of(other)); }
    bool isEqual(void const* units, int n) const override { return self().isEqual(of(units), n); }
    bool isEqualSameCase(AnyString const& other) const override
    {
        return self().isEqualSameCase(of(other));
    }
    bool isEqualSameCase(void const* units, int n) const override
    {
        return self().isEqualSameCase(of(units), n);
    }
    bool isEqualUpperCaseInput(AnyString const& other) const override
    {
        return self().isEqualUpperCaseInput(of(other));
    }
    bool isEqualLowerCaseInput(AnyString const& other) const override
    {
        return self().isEqualLowerCaseInput(of(other));
    }

    int indexOf(AnyString const& pattern, int start) const override
    {
        return self().indexOf(of(pattern), start);
    }
    int indexOf(Unit c, int start) const override { return self().indexOf(of(c), start); }
    int indexOfCaseSen(AnyString const& pattern, int start) const override
    {
        return self().indexOfCaseSen(of(pattern), start);
    }
    int indexOfCaseSen(Unit c, int start) const override
    {
        return self().indexOfCaseSen(of(c), start);
    }
    int lastIndexOf(Unit c, int start) const override { return self().lastIndexOf(of(c), start); }
    int indexOfFirstOcc(AnyString const& a, AnyString const& b, int* which) const override
    {
        return self().indexOfFirstOcc(of(a), of(b), which);
    }
    int indexOfFirstOcc(AnyString const& a, AnyString const& b, AnyString const& c,
                        AnyString const& d, AnyString const& e, AnyString const& f,
                        int* which) const override
    {
        return self().indexOfFirstOcc(of(a), of(b), of(c), of(d), of(e), of(f), which);
    }
    int count(char c) const override { return self().count(c); }
    int countCaseSen(char c) const override { return self().countCaseSen(c); }
    bool contains(AnyString const& pattern) const override { return self().contains(of(pattern)); }
    bool contains(char c) const override { return self().contains(c); }
    bool contains(char const* s) const override { return self().contains(s); }
    bool containsCaseSen(AnyString const& pattern) const override
    {
        return self().containsCaseSen(of(pattern));
    }
    bool containsCaseSen(char const* s) const override { return self().containsCaseSen(s); }
    bool containsCaseSen(char const* s, int n) const override
    {
        return self().containsCaseSen(s, n);
    }
    bool containsUpperCaseInput(AnyString const& pattern) const override
    {
        return self().containsUpperCaseInput(of(pattern));
    }
    bool containsUpperCaseInput(char const* s) const override
    {
        return self().containsUpperCaseInput(s);
    }

    bool startsWith(AnyString const& pattern) const override
    {
        return self().startsWith(of(pattern));
    }
    bool startsWith(Unit c) const override { return self().startsWith(of(c)); }
    bool startsWith(char const* s) const override { return self().startsWith(s); }
    bool startsWith(char const* s, int n) const override { return self().startsWith(s, n); }
    bool startsWithCaseSen(AnyString const& pattern) const override
    {
        return self().startsWithCaseSen(of(pattern));
    }
    bool startsWithCaseSen(char const* s) const override { return self().startsWithCaseSen(s); }
    bool endsWith(AnyString const& pattern) const override { return self().endsWith(of(pattern)); }
    bool endsWith(Unit c) const override { return self().endsWith(of(c)); }
    bool endsWith(char c) const override { return self().endsWith(c); }
    bool endsWith(char const* s) const override { return self().endsWith(s); }
    bool endsWith(char const* s, int n) const override { return self().endsWith(s, n); }

    void makeUpper() override { self().makeUpper(); }
    void makeLower() override { self().makeLower(); }
    void trim() override { self().trim(); }
    void const* replace(Unit a, Unit b) override { return &self().replace(of(a), of(b)); }
    void const* replace(AnyString const& from, AnyString const& to) override
    {
        return &self().replace(of(from), of(to));
    }
    void const* replaceCaseSen(AnyString const& from, AnyString const& to) override
    {
        return &self().replaceCaseSen(of(from), of(to));
    }
    void const* remove(AnyString const& pattern) override { return &self().remove(of(pattern)); }
    void const* removeCaseSens(AnyString const& pattern) override
    {
        return &self().removeCaseSens(of(pattern));
    }
    Value remove(Unit c) override { return valueOf(self().remove(of(c))); }
    void remove(int start, int count) override { self().remove(start, count); }
    void insert(int position, AnyString const& s) override { self().insert(position, of(s)); }
    void replace(char const* from, char const* to) override { self().replace(from, to); }
    void replaceCaseSen(char const* from, char const* to) override
    {
        self().replaceCaseSen(from, to);
    }
    void remove(char const* pattern) override { self().remove(pattern); }
    void removeCaseSens(char const* pattern) override { self().removeCaseSens(pattern); }
    void insert(int position, char const* s) override { self().insert(position, s); }

    Value left(int n) const override { return valueOf(self().left(n)); }
    Value left(Unit c, bool withSeparator) const override
    {
        return valueOf(self().left(of(c), withSeparator));
    }
    Value leftNCut(Unit c, bool withSeparator) override
    {
        return valueOf(self().leftNCut(of(c), withSeparator));
    }
    Value mid(int start, int count) const override { return valueOf(self().mid(start, count)); }

    void addSpacing(void const* units, int width) override { self().addSpacing(of(units), width); }
    void addSpacingC(char const* s, int width) override { self().addSpacingC(s, width); }
    void addNrSpacing(long long v, signed char width) override { self().addNrSpacing(v, width); }

    int indexOfText(char const* s) override
    {
        if constexpr (sizeof(CharUnit) == 2)
            return self().indexOf(s);
        ADD_FAILURE() << "no such member for " << s;
        return -1;
    }

    void assignOwn(std::size_t c) override { self() = self().text[c]; }
    void appendOwn(std::size_t c) override { self() += self().text[c]; }
    void replaceByOwn(std::size_t a, std::size_t b) override
    {
        self().replace(self().text[a], self().text[b]);
    }
    void removeOwn(std::size_t c) override { self().remove(self().text[c]); }
    Value leftNCutByOwn(std::size_t c, bool withSeparator) override
    {
        return valueOf(self().leftNCut(self().text[c], withSeparator));
    }
};

template <typename S>
std::unique_ptr<AnyString> makeString()
{
    return std::make_unique<StringOf<S>>();
}

/// One template at each of the capacities.
template <template <int> class S, int... N>
void addImages(Images& images)
{
    (images.push_back(&imageFor<S<N>>), ...);
}

} // namespace strings
