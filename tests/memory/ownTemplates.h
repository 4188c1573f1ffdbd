#pragma once

// Included ahead of every test under the memory sanitizer: the C++ library holds some templates
// compiled without the sanitizer, so the tests compile them anew.

#include <bits/c++config.h>

#undef _GLIBCXX_EXTERN_TEMPLATE
#define _GLIBCXX_EXTERN_TEMPLATE 0
