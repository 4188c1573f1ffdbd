#include "tests/model/stringRows.h"

#include <cstdio>

// Prints the members that the rows drive, one a line: image, kind, member, exact parameter types.
namespace {

using namespace qvTest;

template <class T>
char const* typeName()
{
    return __PRETTY_FUNCTION__;
}

struct Lister
{
    template <class C, class... R>
    static void list(unsigned image, char const* name, Rows<R...>)
    {
        (row<C, R>(image, name), ...);
    }

    template <class C, class R>
    static void row(unsigned image, char const* name)
    {
        if constexpr (requires { R::memberName; })
            if ((R::images & image) != 0)
                std::printf("%s %s|%s\n", name, R::memberName,
                            typeName<typename R::template ExactFor<C>>());
    }
};

} // namespace

int main()
{
    Lister::list<_qvString8_allSize<6>>(Images::c8, "_qvString8_allSize", StringRows());
    Lister::list<_qvString8_evenSize_old<6>>(Images::o8, "_qvString8_evenSize_old", StringRows());
    Lister::list<_qvString8_UnevenSize_old<7>>(Images::o8, "_qvString8_UnevenSize_old",
                                               StringRows());
    Lister::list<_qvString<10>>(Images::c16, "_qvString", StringRows());
    Lister::list<_qvString_old<10>>(Images::o16, "_qvString_old", StringRows());
    return 0;
}
