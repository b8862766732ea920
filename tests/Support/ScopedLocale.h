#pragma once

#include "tests/Support/ScopedEnvironment.h"
#include "tests/Support/TemporaryFolder.h"

#include <optional>
#include <string>

/// Takes over a locale for the characters and restores the former one at the end.
class ScopedLocale
{
public:
    explicit ScopedLocale(const char* name);
    ~ScopedLocale();
    ScopedLocale(const ScopedLocale&) = delete;
    ScopedLocale& operator=(const ScopedLocale&) = delete;

    /// False if this machine doesn't have the locale.
    bool IsTaken() const { return m_taken; }

private:
    std::string m_before;
    bool m_taken;
};

/// Takes over a Latin-1 locale, made for the test, since few machines have one installed.
class Latin1Locale
{
public:
    Latin1Locale();

    /// False if none can be made on this machine.
    bool IsTaken() const { return m_locale->IsTaken(); }

private:
    TemporaryFolder m_folder;
    std::optional<ScopedEnvironment> m_path;
    std::optional<ScopedLocale> m_locale;
};
