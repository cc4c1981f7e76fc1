#pragma once

#include <functional>

namespace qpt::testing {

// Runs `body` in a forked child and returns its result (0..255), or -1 when
// the child did not end normally. For failures that a test must not bring
// upon itself: a file size limit, another user's rights.
int RunInChild(const std::function<int()>& body);

// In the child: the file size limit at `bytes`, so that writes beyond it
// fail with EFBIG as on a full disk (the signal is ignored).
void LimitFileSize(long bytes);

// In the child: when running as root, becomes an unprivileged user, so that
// folder permissions hold. False when that could not be done.
bool DropRootRights();

}  // namespace qpt::testing
