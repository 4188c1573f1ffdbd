#include "tests/strings/besideCalls.h"

#include "qv/strings/qvString.h"
#include "qv/strings/qvString8.h"
#include "qv/strings/qvString8_old.h"
#include "qv/strings/qvString_old.h"

namespace {

template <typename String>
String damaged()
{
    String s("ab");
    s.length = 60000;
    return s;
}

// Members of all images, which a string has from its base.
template <typename String>
void append()
{
    String s = damaged<String>();
    s.add("x");
}

template <typename String>
void find()
{
    String s("abcd");
    (void)s.indexOf(s, -1);
}

using S8 = _qvString8_allSize<6>;
using S16 = _qvString<250>;

std::vector<beside::Call> calls()
{
    return {
        {"add\\(\\) at length 60000, capacity 6", append<S8>},
        {"add\\(\\) at length 60000, capacity 14", append<_qvString8_evenSize_old<14>>},
        {"add\\(\\) at length 60000, capacity 15", append<_qvString8_UnevenSize_old<15>>},
        {"add\\(\\) at length 60000, capacity 250", append<S16>},
        {"add\\(\\) at length 60000, capacity 10", append<_qvString_old<10>>},
        {"indexOf\\(-1\\) at length 4, capacity 6", find<S8>},
        {"indexOf\\(-1\\) at length 4, capacity 10", find<_qvString_old<10>>},
        {"to_qvString8_250\\(\\) at length 60000, capacity 250",
         [] { (void)damaged<S16>().to_qvString8_250(); }},
        // The strings' own.
        {"addNr\\(\\) at length 60000, capacity 6", [] { damaged<S8>().addNr(5); }},
        {"addNr\\(\\) at length 60000, capacity 250", [] { damaged<S16>().addNr(5); }},
        {"addHexCode\\(\\) at length 60000, capacity 6", [] { damaged<S8>().addHexCode(5); }},
        {"indexOfCaseSen\\(\\) at length 60000, capacity 6",
         [] { (void)damaged<S8>().indexOf(static_cast<unsigned short>('x'), 0); }},
        {"operator==\\(\\) at length 60000, capacity 6", [] { (void)(damaged<S8>() != "ab"); }},
        {"operator==\\(\\) at length 60000, capacity 250", [] { (void)(damaged<S16>() != "ab"); }},
        {"toInt\\(\\) at length 60000, capacity 6",
         [] {
             bool ok;
             (void)damaged<S8>().toInt(&ok);
         }},
        {"operator==\\(\\) at length 7, capacity 6",
         [] {
             _qvString8_evenSize_old<6> old("abcdef");
             old.length = 7;
             (void)(S8("abcdef") == old);
         }},
        {"operator=\\(\\) at length 7, capacity 6",
         [] {
             _qvString8_evenSize_old<6> old("abcdef");
             old.length = 7;
             S8 taken;
             taken = old;
         }},
        {"_qvString8_allSize\\(\\) at length 7, capacity 6", // its pad byte has room for one more
         [] {
             _qvString8_allSize<7> const longer("abcdefg");
             (void)S8(longer.asUni());
         }},
    };
}

} // namespace

#ifdef QV_CHECKED
std::vector<beside::Call> beside::checkedCalls()
#else
std::vector<beside::Call> beside::uncheckedCalls()
#endif
{
    return calls();
}
