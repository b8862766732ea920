#include "Authoring/ScriptLocation.h"

#include "Platform/Environment.h"
#include "tests/Document/TestApplication.h"
#include "tests/Platform/Posix/TestProcess.h"

#include <gtest/gtest.h>

TEST(AdministratorRightsTest, WhoDoesNotHaveThemIsToldAndTheDatabaseFolderStays)
{
    const ScopedVariable variable("VANTREL_DATABASE_DIR", L"/before");
    EXPECT_TRUE(RunWithoutPrivileges(
        []
        {
            RecordingPrompt prompt;
            ApplyDatabaseDirectory(L"/after", prompt);
            return prompt.kinds == std::vector{ BoxKind::Error } &&
                   Platform::EnvironmentVariable(DatabaseFolderVariable) == L"/before";
        }));
}
