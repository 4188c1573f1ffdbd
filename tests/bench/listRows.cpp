// Prints the names of all benchmarks, which register themselves.
int main() {}
