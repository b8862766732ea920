#include "Platform/PathStyle.h"

namespace Platform
{

const PathStyle SystemPaths = RootPaths;

} // namespace Platform
