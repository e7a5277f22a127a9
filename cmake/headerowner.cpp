// What CMake asks of a target that owns precompiled headers: a source.

int main() { }
