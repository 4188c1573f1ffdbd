#pragma once

#include "qv/strings/qvString.h"
#include "qv/strings/qvString8.h"
#include "qv/strings/qvString8_old.h"
#include "qv/strings/qvString_old.h"
#include "tests/model/guardedObject.h"
#include "tests/model/string16Image.h"
#include "tests/model/string8Image.h"
#include "tests/model/stringOutcome.h"
#include "tests/model/stringReading.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <type_traits>

// The parameters of the members under test. Each kind says as which exact type a class C takes it
// (`As`), how it is read off the input, what an object and a model are given, and how it is told.
namespace qvTest {

template <class C>
using GuardedStrings = std::vector<GuardedObject<C>>;

template <class C>
using UnitOf = std::remove_cvref_t<decltype(C::text[0])>;

template <class C>
constexpr bool isWide = sizeof(UnitOf<C>) == 2;

// How the text of a string is viewed across capacities.
template <class C>
using ViewOf = std::conditional_t<isWide<C>, _qvString_Uni_pointer, _qvString8_Uni_pointer>;

// The capacity of the string behind a view of another capacity.
template <class Unit>
inline constexpr std::size_t otherViewCapacity = sizeof(Unit) == 1 ? 5000 : 2500;

template <class C>
C& stringAt(GuardedStrings<C>& objects, std::size_t i)
{
    return objects[i].get();
}

template <class Model>
Model const& stringAt(StringModels<Model> const& models, std::size_t i)
{
    return models[i];
}

// The order in which the arguments of a call are read, whatever their order in the member: a text
// follows the number that may be its count.
enum class Turn
{
    string,
    number,
    single,
    flag,
    out,
    wide,
    text,
};

// A text that an argument is given, as it is in bytes and in units, and what it is for.
struct GivenText
{
    std::string bytes;
    std::u16string units;
    int count = 0; // of a counted text
    std::size_t capacity = 0;
    std::size_t unitSize = 0; // of the receiver
};

class Parameter
{
public:
    explicit Parameter(Turn theTurn) : turn(theTurn) {}
    virtual ~Parameter() = default;

    virtual void read(Reading& reading) = 0;
    virtual std::string told() const = 0;
    virtual std::optional<long long> side() const { return std::nullopt; } // of an out-parameter
    virtual void hold(GivenText const&) {}                                 // of a text
    virtual bool isCounted() const { return false; }

    Turn const turn;
};

// One of the strings, the receiver included.
struct Object : Parameter
{
    template <class C>
    using As = C const&;
    std::size_t index = 0;

    Object() : Parameter(Turn::string) {}
    void read(Reading& reading) override { index = reading.others[reading.othersTaken++]; }
    std::string told() const override { return "string " + std::to_string(index); }
    auto& given(auto& strings) const { return stringAt(strings, index); }
};

struct ObjectByValue : Object
{
    template <class C>
    using As = C;
};

// The view of one of the strings.
struct ViewToConst : Object
{
    template <class C>
    using As = ViewOf<C> const*;

    template <class C>
    ViewOf<C>* given(GuardedStrings<C>& objects) const
    {
        return const_cast<ViewOf<C>*>(objects[index].get().asUni());
    }
    template <class Model>
    auto given(StringModels<Model> const& models) const
    {
        return models[index].used();
    }
};

struct View : ViewToConst
{
    template <class C>
    using As = ViewOf<C>*;
};

// An int for a position, a count or a width, cut to the type that the member takes.
struct AnyNumber : Parameter
{
    int value = 0;

    AnyNumber() : Parameter(Turn::number) {}
    void read(Reading& reading) override { value = reading.number(); }
    std::string told() const override { return std::to_string(value); }
};

template <class P>
struct Number : AnyNumber
{
    template <class>
    using As = P;
    auto given(auto const&) const { return static_cast<std::remove_cvref_t<P>>(value); }
};

// A place of the text: each is worth writing to, above all the last one.
struct Place : Number<int>
{
    void read(Reading& reading) override;
};

// A character or unit, as the string is made of.
struct Single : Parameter
{
    template <class C>
    using As = UnitOf<C> const&;
    mutable char c = 0; // given by reference
    mutable unsigned short unit = 0;

    Single() : Parameter(Turn::single) {}
    void read(Reading& reading) override;
    std::string told() const override;

    template <class C>
    auto& given(GuardedStrings<C>&) const
    {
        if constexpr (isWide<C>)
            return unit;
        else
            return c;
    }
    template <class Model>
    auto given(StringModels<Model> const&) const
    {
        if constexpr (sizeof(typename Model::UnitType) == 1)
            return c;
        else
            return static_cast<char16_t>(unit);
    }
};

struct SingleToWrite : Single
{
    template <class C>
    using As = UnitOf<C>&;
};

// A char, also for the strings of units.
template <class P>
struct Char : Single
{
    template <class>
    using As = P;
    char given(auto const&) const { return c; }
};

// A unit for the 8-bit strings, with a high byte that they have to drop.
struct WidenedUnit : Single
{
    template <class>
    using As = unsigned short const&;
    void read(Reading& reading) override;
    unsigned short given(auto const&) const { return unit; }
};

struct Flag : Parameter
{
    template <class>
    using As = bool const&;
    bool value = false;

    Flag() : Parameter(Turn::flag) {}
    void read(Reading& reading) override { value = reading.input.flag(); }
    std::string told() const override { return value ? "true" : "false"; }
    bool given(auto const&) const { return value; }
};

// An out-parameter or null.
struct AnyOut : Parameter
{
    bool isThere = false;

    AnyOut() : Parameter(Turn::out) {}
    void read(Reading& reading) override { isThere = reading.input.byte() < 192; }
    std::string told() const override { return isThere ? "out-parameter" : "null"; }
};

// The object finds another value in it than the model has left.
template <class T>
struct Out : AnyOut
{
    template <class>
    using As = T*;
    mutable T left{};

    std::optional<long long> side() const override
    {
        return isThere ? std::optional<long long>(left) : std::nullopt;
    }
    template <class C>
    T* given(GuardedStrings<C>&) const
    {
        left = static_cast<T>(!left);
        return isThere ? &left : nullptr;
    }
    template <class Model>
    T* given(StringModels<Model> const&) const
    {
        left = T{};
        return isThere ? &left : nullptr;
    }
};

// A number to show, cut to the type that the member takes.
struct AnyWide : Parameter
{
    long long value = 0;

    AnyWide() : Parameter(Turn::wide) {}
    void read(Reading& reading) override { value = reading.input.wideNumber(); }
    std::string told() const override { return std::to_string(value); }
};

template <class P>
struct Wide : AnyWide
{
    template <class>
    using As = P;
    auto given(auto const&) const { return static_cast<std::remove_cvref_t<P>>(value); }
};

// The same; the model is given its decimal digits.
template <class P>
struct Decimal : AnyWide
{
    template <class>
    using As = P;
    template <class C>
    auto given(GuardedStrings<C>&) const
    {
        return static_cast<std::remove_cvref_t<P>>(value);
    }
    template <class Model>
    std::string given(StringModels<Model> const&) const
    {
        return std::to_string(static_cast<std::remove_cvref_t<P>>(value));
    }
};

// The units of a text as a callee gets them.
template <class Unit>
using Raw = std::conditional_t<sizeof(Unit) == 1, char, unsigned short>;

// A text behind a pointer, null included. The storage has nothing to spare.
template <class Unit>
struct PointedText : Parameter
{
    template <class>
    using As = Raw<Unit> const*;
    std::basic_string<Unit> characters;
    bool isNull = false;
    std::unique_ptr<Raw<Unit>[]> storage;

    PointedText() : Parameter(Turn::text) {}
    std::string told() const override;

protected:
    void holdTerminated(GivenText const& text);
    void holdCounted(GivenText const& text);
    void store(std::size_t size);
    void readTerminated(Reading& reading, int* storedIn);
    void readCounted(Reading& reading, bool mayBeNull);
};
extern template struct PointedText<char>;
extern template struct PointedText<char16_t>;

// A zero-terminated text.
template <class Unit>
struct Terminated : PointedText<Unit>
{
    void read(Reading& reading) override { this->readTerminated(reading, nullptr); }
    void hold(GivenText const& text) override { this->holdTerminated(text); }
    template <class C>
    Raw<Unit> const* given(GuardedStrings<C>&) const
    {
        return this->isNull ? nullptr : this->storage.get();
    }
    template <class Model>
    std::basic_string<Unit> const* given(StringModels<Model> const&) const
    {
        return this->isNull ? nullptr : &this->characters;
    }
};
using Text = Terminated<char>;
using Units = Terminated<char16_t>;

// The null that is no pointer yet; a model is given a text that is not there.
struct Null : Parameter
{
    template <class>
    using As = std::nullptr_t;

    Null() : Parameter(Turn::text) {}
    void read(Reading&) override {}
    std::string told() const override { return "nullptr"; }
    template <class C>
    std::nullptr_t given(GuardedStrings<C>&) const
    {
        return nullptr;
    }
    template <class Model>
    std::basic_string<typename Model::UnitType> const* given(StringModels<Model> const&) const
    {
        return nullptr;
    }
};

// One that may be the stored text of a string.
template <class Unit>
struct OwnTerminated : PointedText<Unit>
{
    static constexpr int noString = -1;
    int storedIn = noString;
    mutable std::basic_string<Unit> storedText;

    void read(Reading& reading) override { this->readTerminated(reading, &storedIn); }
    void hold(GivenText const& text) override { this->holdTerminated(text); }
    std::string told() const override
    {
        return storedIn == noString ? PointedText<Unit>::told()
                                    : "text stored in string " + std::to_string(storedIn);
    }
    template <class C>
    Raw<Unit> const* given(GuardedStrings<C>& objects) const
    {
        if constexpr (sizeof(UnitOf<C>) == sizeof(Unit))
            if (storedIn != noString)
                return objects[static_cast<std::size_t>(storedIn)].get().text;
        return this->isNull ? nullptr : this->storage.get();
    }
    template <class Model>
    std::basic_string<Unit> const* given(StringModels<Model> const& models) const
    {
        if constexpr (std::is_same_v<Unit, typename Model::UnitType>)
            if (storedIn != noString) {
                storedText = models[static_cast<std::size_t>(storedIn)].storedText();
                return &storedText;
            }
        return this->isNull ? nullptr : &this->characters;
    }
};
using OwnText = OwnTerminated<char>;
using OwnUnits = OwnTerminated<char16_t>;

// A text by count, which the number of the call is: as long as it will be read.
template <class Unit, bool mayBeNull>
struct CountedBy : PointedText<Unit>
{
    void read(Reading& reading) override { this->readCounted(reading, mayBeNull); }
    void hold(GivenText const& text) override { this->holdCounted(text); }
    bool isCounted() const override { return true; }
    template <class C>
    Raw<Unit> const* given(GuardedStrings<C>&) const
    {
        return this->storage.get();
    }
    template <class Model>
    decltype(auto) given(StringModels<Model> const&) const
    {
        if constexpr (mayBeNull)
            return this->isNull ? nullptr : &this->characters;
        else
            return (this->characters);
    }
};
using CountedText = CountedBy<char, false>;
using CountedTextOrNull = CountedBy<char, true>;
using CountedUnits = CountedBy<char16_t, false>;
using CountedUnitsOrNull = CountedBy<char16_t, true>;

// A text that is no pointer, zeros included.
struct PlainText : Parameter
{
    std::string characters;
    std::u16string units; // for the strings of units

    PlainText() : Parameter(Turn::text) {}
    void read(Reading& reading) override;
    void hold(GivenText const& text) override;
    std::string told() const override;

    template <class Unit>
    auto const& in() const
    {
        if constexpr (sizeof(Unit) == 1)
            return characters;
        else
            return units;
    }
};

struct StdString : PlainText
{
    template <class>
    using As = std::string const&;
    std::string const& given(auto const&) const { return characters; }
};

// The view of a text in a string of another capacity.
struct OtherViewToConst : PlainText
{
    template <class C>
    using As = ViewOf<C> const*;
    mutable _qvString8_allSize<otherViewCapacity<char>> other8;
    mutable _qvString<otherViewCapacity<char16_t>> other16;

    _qvString8_Uni_pointer* view8() const;
    _qvString_Uni_pointer* view16() const;

    template <class C>
    ViewOf<C>* given(GuardedStrings<C>&) const
    {
        if constexpr (isWide<C>)
            return view16();
        else
            return view8();
    }
    template <class Model>
    auto const& given(StringModels<Model> const&) const
    {
        return in<typename Model::UnitType>();
    }
};

struct OtherView : OtherViewToConst
{
    template <class C>
    using As = ViewOf<C>*;
};

// The view of a byte text, for a string of units.
struct View8 : OtherViewToConst
{
    template <class>
    using As = _qvString8_Uni_pointer const*;
    bool isNull = false;

    void read(Reading& reading) override;
    template <class C>
    _qvString8_Uni_pointer const* given(GuardedStrings<C>&) const
    {
        return isNull ? nullptr : view8();
    }
    template <class Model>
    std::string const* given(StringModels<Model> const&) const
    {
        return isNull ? nullptr : &characters;
    }
};

// Units for an 8-bit string, each with a high byte that it has to drop.
struct WidenedText : PlainText
{
    template <class>
    using As = unsigned short const*;
    bool isNull = false;
    std::vector<unsigned short> made;

    void read(Reading& reading) override;
    void hold(GivenText const& text) override;
    template <class C>
    unsigned short const* given(GuardedStrings<C>&) const
    {
        return isNull ? nullptr : made.data();
    }
    template <class Model>
    std::vector<unsigned short> const* given(StringModels<Model> const&) const
    {
        return isNull ? nullptr : &made;
    }

private:
    void widen(unsigned high);
};

// An older image, filled for a conversion: stale bytes all over, the length inside the capacity. It
// lies in storage of its own; beyond the capacities of its own members only its fields exist, so it
// is filled as bytes and never constructed.
struct AnyOlder : PlainText
{
    int number = 0;
    mutable std::unique_ptr<unsigned char[]> storage;

    void read(Reading& reading) override;
    void hold(GivenText const& text) override;
    std::string told() const override;

protected:
    template <class Model>
    Model source(StringImage const& image) const
    {
        Model made(image, 0);
        made.putBytes(characters);
        made.putLength(static_cast<unsigned int>(number) % (image.capacity + 1));
        return made;
    }
    void store(std::vector<unsigned char> const& bytes) const;
};

template <template <int> class Legacy, StringImage (*image)(std::size_t)>
struct Older : AnyOlder
{
    template <class C>
    using As = Legacy<CapacityOf<C>::value> const&;

    template <class C>
    As<C> given(GuardedStrings<C>&) const
    {
        constexpr StringImage filled = image(CapacityOf<C>::value);
        static_assert(sizeof(std::remove_cvref_t<As<C>>) == filled.size);
        store(source<StringModel<std::conditional_t<isWide<C>, char16_t, char>>>(filled).bytes());
        return *reinterpret_cast<std::remove_reference_t<As<C>>*>(storage.get());
    }
    template <class Model>
    Model given(StringModels<Model> const& models) const
    {
        return source<Model>(image(models[0].capacity()));
    }
};
using EvenOld = Older<_qvString8_evenSize_old, evenOldImage>;
using UnevenOld = Older<_qvString8_UnevenSize_old, unevenOldImage>;
using Old16 = Older<_qvString_old, old16Image>;

} // namespace qvTest
