#pragma once

// Makes allocations and file-system calls fail. Neither allocates itself.

namespace quindle::testing {

// The calls of one kind that can be made to fail: counted while armed, failing at the nth.
enum class FaultKind { Allocation, FileSystem };

// From now on counts the calls of `kind`; the `nth` fails (0: none does).
void ArmFault(FaultKind kind, long nth);
// Stops counting and returns how many calls there were.
long DisarmFault();

// How many allocations were not made to fail because the standard library cannot survive that
// there: those of its directory iterator.
long SparedAllocations();

// Directory streams and files opened by the wrapped functions and not closed.
long OpenDescriptors();

}  // namespace quindle::testing
