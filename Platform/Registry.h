#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The registry: keys with `\` between their parts, values of text or 32-bit integers.
/// Key and value names are compared without regard to case.
namespace Platform
{

enum class RegistryRoot
{
    ClassesRoot,
    CurrentUser,
    LocalMachine,
};

/// Text of a value; an empty `name` is the key's default value. Nothing if it is missing
/// or of another type.
std::optional<std::wstring> ReadRegistryText(RegistryRoot root, std::wstring_view key, std::wstring_view name);

/// 32-bit integer of a value. Nothing if it is missing or of another type.
std::optional<std::uint32_t> ReadRegistryNumber(RegistryRoot root, std::wstring_view key, std::wstring_view name);

/// Makes the key if it is missing and stores a text. False if that isn't allowed.
bool WriteRegistryText(RegistryRoot root, std::wstring_view key, std::wstring_view name, std::wstring_view text);

/// Makes the key if it is missing and stores a 32-bit integer. False if that isn't allowed.
bool WriteRegistryNumber(RegistryRoot root, std::wstring_view key, std::wstring_view name, std::uint32_t number);

/// True if the key exists.
bool RegistryKeyExists(RegistryRoot root, std::wstring_view key);

/// True if the user may write the key's values and make keys below it.
bool MayWriteRegistryKey(RegistryRoot root, std::wstring_view key);

/// Names of the keys right below a key, in the order of the registry.
std::vector<std::wstring> RegistrySubkeys(RegistryRoot root, std::wstring_view key);

/// Names of a key's values; an empty one is the default value.
std::vector<std::wstring> RegistryValueNames(RegistryRoot root, std::wstring_view key);

/// Removes a key with everything below it. True if it is gone afterwards.
bool DeleteRegistryKey(RegistryRoot root, std::wstring_view key);

} // namespace Platform
