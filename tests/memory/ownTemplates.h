#pragma once

// Included ahead of every test under the memory sanitizer: templates that the C++ library holds
// compiled, which it is without the sanitizer, are compiled in the tests anew.

#include <bits/c++config.h>

#undef _GLIBCXX_EXTERN_TEMPLATE
#define _GLIBCXX_EXTERN_TEMPLATE 0
