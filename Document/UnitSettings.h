#pragma once

#include <cstdint>
#include <string>

/// The user's choice of units, which every new document starts with: `Units` in
/// `settings.xml`, `OrvaneLtd` and `WQZ` below the folder that the variable `appdata` names.

/// Loads the units, or stores them if `read` is false. A user without a file gets one when
/// the units are loaded, from the one in `Settings` below the folder that `vantrel_data_dir`
/// names, or else with the units as they are. Does nothing without `appdata`. A file that
/// can't be written is not noticed.
void UnitSettings(std::int32_t& linear, std::int32_t& angular, bool read);

/// Reads the units from a file. False, with both as they were, for a file that isn't there,
/// can't be read or has no `Units`. A unit that the file doesn't have stays as it was; a name
/// that no unit has counts as 0.
bool ReadUnits(const std::wstring& file, std::int32_t& linear, std::int32_t& angular);

/// Stores the units in a file and leaves what else is in it. A file that can't be read is
/// kept beside it, `.damaged` behind its name, and replaced. A number that no unit has is
/// stored as millimeters or degrees.
void WriteUnits(const std::wstring& file, std::int32_t linear, std::int32_t angular);
