// Lets each system call that changes files fail once, wherever the program makes it. A test program that
// names failing_calls.cpp among its sources replaces the C library's functions open, pwrite, fsync, close,
// rename, renameat2, mkdir, mkdtemp and fchmod.
#pragma once

#include <functional>
#include <string>

namespace zerbal::test {

/// Runs `prepare` and then `work` as often as `work` makes calls that change files, and each time lets
/// another one fail with `error`, a value of errno. Of many writes in a row, the first three fail. After each
/// run, `check` gets the name of the call that failed. The last run has no failure and is not checked.
/// Returns the number of calls.
int FailEachCall(int error, const std::function<void()>& prepare, const std::function<void()>& work,
                 const std::function<void(const std::string& failed)>& check);

}  // namespace zerbal::test
