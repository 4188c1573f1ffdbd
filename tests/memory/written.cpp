// Tells the memory sanitizer what compiled code writes in the sight of tests: of the C++ library
// streams, locales, nodes of trees and names of types, of the C library what it prints to a stream
// of a test. Nothing of the product is named here.
#include <cstddef>
#include <cstdio>
#include <ios>
#include <locale>
#include <map>
#include <sanitizer/msan_interface.h>

// Streams reach these through a locale, which the library makes; so no stream asks for them.
template class std::num_get<char>;
template class std::num_put<char>;

namespace {

cookie_write_function_t* writeOfTest = nullptr;

ssize_t writeWritten(void* cookie, char const* data, std::size_t size)
{
    __msan_unpoison(data, size);
    return writeOfTest(cookie, data, size);
}

} // namespace

extern "C" {

// The names are the linker's.
// NOLINTBEGIN(bugprone-reserved-identifier)
void __real__ZNSt8ios_baseC2Ev(std::ios_base* made);
void __real__ZNSt6localeC1Ev(std::locale* made);
void __real__ZNSt6localeC1ERKS_(std::locale* made, std::locale const& other);
void __real__ZSt29_Rb_tree_insert_and_rebalancebPSt18_Rb_tree_node_baseS0_RS_(
    bool left, std::_Rb_tree_node_base* node, std::_Rb_tree_node_base* parent,
    std::_Rb_tree_node_base& header);
void __real__ZNKSt5ctypeIcE13_M_widen_initEv(std::ctype<char> const* characters);
char* __real___cxa_demangle(char const* mangled, char* buffer, std::size_t* size, int* status);
std::FILE* __real_fopencookie(void* cookie, char const* mode, cookie_io_functions_t functions);

void __wrap__ZNSt8ios_baseC2Ev(std::ios_base* made)
{
    __real__ZNSt8ios_baseC2Ev(made);
    __msan_unpoison(made, sizeof *made);
}

void __wrap__ZNSt6localeC1Ev(std::locale* made)
{
    __real__ZNSt6localeC1Ev(made);
    __msan_unpoison(made, sizeof *made);
}

void __wrap__ZNSt6localeC1ERKS_(std::locale* made, std::locale const& other)
{
    __real__ZNSt6localeC1ERKS_(made, other);
    __msan_unpoison(made, sizeof *made);
}

void __wrap__ZSt29_Rb_tree_insert_and_rebalancebPSt18_Rb_tree_node_baseS0_RS_(
    bool left, std::_Rb_tree_node_base* node, std::_Rb_tree_node_base* parent,
    std::_Rb_tree_node_base& header)
{
    __real__ZSt29_Rb_tree_insert_and_rebalancebPSt18_Rb_tree_node_baseS0_RS_(left, node, parent,
                                                                             header);
    __msan_unpoison(node, sizeof *node);
}

char* __wrap___cxa_demangle(char const* mangled, char* buffer, std::size_t* size, int* status)
{
    char* const name = __real___cxa_demangle(mangled, buffer, size, status);
    if (name != nullptr)
        __msan_unpoison_string(name);
    return name;
}

// Compares two arrays of its own.
void __wrap__ZNKSt5ctypeIcE13_M_widen_initEv(std::ctype<char> const* characters)
{
    __msan_scoped_disable_interceptor_checks();
    __real__ZNKSt5ctypeIcE13_M_widen_initEv(characters);
    __msan_scoped_enable_interceptor_checks();
}

// One such stream at a time.
std::FILE* __wrap_fopencookie(void* cookie, char const* mode, cookie_io_functions_t functions)
{
    writeOfTest = functions.write;
    functions.write = writeWritten;
    return __real_fopencookie(cookie, mode, functions);
}
// NOLINTEND(bugprone-reserved-identifier)

} // extern "C"
