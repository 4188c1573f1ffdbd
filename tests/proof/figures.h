// The figures of a proof. The program ends with them on one line, `proof: NAME key=value ...`,
// which docs/testing.md tabulates.
#pragma once

#include <string>

namespace proof {

// The figure of that name, 0 until it is set; the line has them in the order of their first use.
long& figure(std::string const& key);

// The number at that place of the command line, counted from 1.
unsigned argument(std::size_t place, unsigned otherwise);

} // namespace proof
