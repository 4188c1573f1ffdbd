#pragma once

#include <cstddef>
#include <string>

/// The peer, for programs that only register the benchmarks.
namespace boost {

template <std::size_t>
using static_string = std::string;

} // namespace boost
