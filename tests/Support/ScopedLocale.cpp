#include "tests/Support/ScopedLocale.h"

#include "Platform/Files.h"

#include <clocale>
#include <cstdlib>

ScopedLocale::ScopedLocale(const char* name)
    : m_before(std::setlocale(LC_CTYPE, nullptr)), m_taken(std::setlocale(LC_CTYPE, name) != nullptr)
{
}

ScopedLocale::~ScopedLocale()
{
    std::setlocale(LC_CTYPE, m_before.c_str());
}

Latin1Locale::Latin1Locale()
{
    const std::string target = Platform::NativePath(m_folder.File(L"en_US.ISO-8859-1")).string();
    const std::string command = "localedef -i en_US -f ISO-8859-1 '" + target + "' >/dev/null 2>&1";
    // The status counts warnings too; what matters is whether the locale can be taken.
    [[maybe_unused]] const int status = std::system(command.c_str());
    m_path.emplace("LOCPATH", m_folder.Path());
    m_locale.emplace("en_US.ISO-8859-1");
}
