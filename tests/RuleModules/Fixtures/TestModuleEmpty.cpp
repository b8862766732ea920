// A library that exports nothing at all.

namespace
{

[[maybe_unused]] constexpr int NothingToExport = 0;

} // namespace
