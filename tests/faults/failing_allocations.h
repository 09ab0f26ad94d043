// Lets each allocation by operator new fail once.
#pragma once

#include <functional>

namespace zerbal::test {

/// Runs `prepare` and then `work` as often as `work` allocates, and each time lets another allocation throw
/// std::bad_alloc. After each of these runs `check` is called. The last run has no failure. Returns the
/// number of allocations. `stride` > 1 takes only every so many allocations, for work that allocates much;
/// ZERBAL_EVERY_ALLOCATION in the environment takes all.
int FailEachAllocation(const std::function<void()>& prepare, const std::function<void()>& work,
                       const std::function<void()>& check, int stride = 1);

}  // namespace zerbal::test
