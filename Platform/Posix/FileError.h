#pragma once

#include "Platform/FileCause.h"

namespace Platform::Posix
{

/// The cause that an error number of a system call on a file stands for; 0 is none.
FileCause CauseOf(int error);

} // namespace Platform::Posix
