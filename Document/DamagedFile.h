#pragma once

#include <string>

/// Keeps a copy of a file that can't be read, `.damaged` behind its name, before what could
/// not be read from it is replaced. An earlier copy stays: it is the older state of what the
/// user had. Nothing is kept of an empty file.
void KeepDamagedFile(const std::wstring& path);
