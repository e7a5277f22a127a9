#pragma once

/// The calls that gave the process memory, or moved it to a larger place: of malloc(), realloc()
/// and the functions that are built on them.
namespace Allocations {

long count();

}
