// The source that CMake requires of a target that owns precompiled headers.

int main() { }
