#include "Document/UnitSettings.h"

#include "Platform/Environment.h"
#include "Platform/Files.h"
#include "Platform/Text.h"
#include "tests/Support/OwnSettings.h"
#include "tests/Support/TestFiles.h"

#include <Vantrel/RuleUnits.h>
#include <Vantrel/VantrelLog.h>

#include <gtest/gtest.h>

#include <string>

namespace
{

/// A settings file with these units.
std::string FileWith(const std::string& linear, const std::string& angular)
{
    return "<Settings><Units><Linear>" + linear + "</Linear><Angular>" + angular + "</Angular></Units></Settings>";
}

/// The file as the program writes it.
std::string Written(const std::string& linear, const std::string& angular)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<Settings>\n"
           "  <Units>\n"
           "    <Linear>" +
           linear +
           "</Linear>\n"
           "    <Angular>" +
           angular +
           "</Angular>\n"
           "  </Units>\n"
           "</Settings>\n";
}

constexpr structRulesUnit Untouched{ 77, 78 };

class UnitSettingsTest : public testing::Test
{
protected:
    bool Read(const std::string& bytes)
    {
        WriteBytes(path, bytes);
        units = Untouched;
        return ReadUnits(path, units.linear, units.angular);
    }

    /// The linear unit that a name reads as.
    std::int32_t LinearOf(const std::string& name)
    {
        EXPECT_TRUE(Read(FileWith(name, "")));
        return units.linear;
    }

    std::string Write(std::int32_t linear, std::int32_t angular) const
    {
        WriteUnits(path, linear, angular);
        return ReadBytes(path);
    }

    void Settings(bool read) { UnitSettings(units.linear, units.angular, read); }

    /// A file for users who have none.
    void WriteFallback(const std::string& bytes) const
    {
        Platform::MakeFolder(data.File(L"Settings"));
        WriteBytes(data.File(L"Settings") + Platform::PathSeparator + L"settings.xml", bytes);
    }

    /// Makes the folders of the user's file.
    void MakeFolders() const { Platform::MakeFolderTree(Platform::FolderPart(settings.UnitsFile())); }

    OwnSettings settings;
    TemporaryFolder data;
    ScopedEnvironment dataFolder{ "vantrel_data_dir", data.Path() };
    TemporaryFolder folder;
    std::wstring path = folder.File(L"settings.xml");
    structRulesUnit units;
};

} // namespace

// --- reading ---------------------------------------------------------------------------

TEST_F(UnitSettingsTest, EachNameReadsAsItsNumberAndIsWrittenForIt)
{
    constexpr const char* Linear[] = { "millimeters", "centimeters", "meters",  "inches", "feet",       "feet & inches",
                                       "angstroms",   "nanometers",  "microns", "mils",   "microinches" };
    constexpr const char* Angular[] = { "degrees", "degrees/minutes", "degrees/minutes/seconds", "radians" };
    const auto markup = [](std::string name)
    {
        const std::size_t ampersand = name.find('&');
        return ampersand == std::string::npos ? name : name.insert(ampersand + 1, "amp;");
    };
    for (std::int32_t linear = 0; linear < 11; ++linear)
    {
        for (std::int32_t angular = 0; angular < 4; ++angular)
        {
            const std::string linearName = markup(Linear[linear]);
            const std::string angularName = Angular[angular];
            EXPECT_TRUE(Read(FileWith(linearName, angularName)));
            EXPECT_EQ(units, (structRulesUnit{ linear, angular })) << linearName << " " << angularName;
            EXPECT_EQ(Write(linear, angular), Written(linearName, angularName));
        }
    }
}

TEST_F(UnitSettingsTest, FeetInAnyCaseReadAs4AndAreWrittenBackInLowerCase)
{
    EXPECT_TRUE(Read(FileWith("FEET", "DeGrEeS")));
    EXPECT_EQ(units, (structRulesUnit{ 4, 0 }));
    EXPECT_EQ(Write(units.linear, units.angular), Written("feet", "degrees"));
}

TEST_F(UnitSettingsTest, NamesOfBothKindsAreReadForEither)
{
    EXPECT_TRUE(Read(FileWith("degrees", "microinches")));
    EXPECT_EQ(units, (structRulesUnit{ 0, 10 }));
    EXPECT_EQ(LinearOf("radians"), 3);
    EXPECT_EQ(LinearOf("degrees/minutes/seconds"), 2);
}

TEST_F(UnitSettingsTest, AnUnknownNameReadsAsZero)
{
    for (const char* const name : { "", "furlongs", " inches", "inches ", "3", "millim\xC3\xA8tres" })
    {
        EXPECT_EQ(LinearOf(name), 0) << name;
    }
    EXPECT_TRUE(Read("<Settings><Units><Linear/><Angular/></Units></Settings>"));
    EXPECT_EQ(units, (structRulesUnit{ 0, 0 }));
}

TEST_F(UnitSettingsTest, AUnitThatIsMissingStaysAsItWas)
{
    EXPECT_TRUE(Read("<Settings><Units><Linear>inches</Linear></Units></Settings>"));
    EXPECT_EQ(units, (structRulesUnit{ 3, 78 }));
    EXPECT_TRUE(Read("<Settings><Units><Angular>radians</Angular></Units></Settings>"));
    EXPECT_EQ(units, (structRulesUnit{ 77, 3 }));
    EXPECT_TRUE(Read("<Settings><Units/></Settings>"));
    EXPECT_EQ(units, Untouched);
}

TEST_F(UnitSettingsTest, AFileWithoutUnitsIsNone)
{
    for (const char* const bytes :
         { "<Settings/>", "<Settings><Other><Units><Linear>feet</Linear></Units></Other></Settings>", "<Units/>",
           "<Settings><units><Linear>feet</Linear></units></Settings>" })
    {
        EXPECT_FALSE(Read(bytes)) << bytes;
        EXPECT_EQ(units, Untouched) << bytes;
    }
}

TEST_F(UnitSettingsTest, WhatCannotBeReadLeavesTheUnits)
{
    const std::string whole = FileWith("inches", "radians");
    for (std::size_t size = 0; size < whole.size(); ++size)
    {
        EXPECT_FALSE(Read(whole.substr(0, size))) << size;
        EXPECT_EQ(units, Untouched) << size;
    }
    EXPECT_FALSE(Read("no xml"));
    EXPECT_FALSE(Read(std::string(100, '\0')));
    EXPECT_FALSE(ReadUnits(folder.File(L"missing.xml"), units.linear, units.angular));
    EXPECT_FALSE(ReadUnits(folder.Path(), units.linear, units.angular)) << "a folder";
    EXPECT_FALSE(ReadUnits(L"", units.linear, units.angular));
    EXPECT_EQ(units, Untouched);
}

TEST_F(UnitSettingsTest, ManyElementsAndDeepOnesAreReadPast)
{
    std::string deep;
    std::string ends;
    std::string many;
    for (int count = 0; count < 100'000; ++count)
    {
        deep += "<a>";
        ends += "</a>";
        many += "<b/>";
    }
    EXPECT_TRUE(Read("<Settings>" + deep + ends + many + "<Units><Linear>feet</Linear></Units></Settings>"));
    EXPECT_EQ(units.linear, 4);
}

// --- writing ---------------------------------------------------------------------------

TEST_F(UnitSettingsTest, ANewFileHasTheTwoUnits)
{
    EXPECT_EQ(Write(3, 3), Written("inches", "radians"));
}

TEST_F(UnitSettingsTest, NumbersThatNoUnitHasAreWrittenAsMillimetersAndDegrees)
{
    EXPECT_EQ(Write(11, 4), Written("millimeters", "degrees"));
    EXPECT_EQ(Write(-1, -1), Written("millimeters", "degrees"));
    EXPECT_EQ(Write(INT32_MAX, INT32_MIN), Written("millimeters", "degrees"));
}

TEST_F(UnitSettingsTest, OtherElementsStayWhereTheyAre)
{
    WriteBytes(path,
               "<Settings a=\"1\"><!-- mine --><Before>x</Before><Units b=\"2\"><Own/><Linear c=\"3\">feet</Linear>"
               "<Angular>radians</Angular></Units><After><Linear>feet</Linear></After></Settings>");
    EXPECT_EQ(Write(3, 0), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                           "<Settings a=\"1\">\n"
                           "  <!-- mine -->\n"
                           "  <Before>x</Before>\n"
                           "  <Units b=\"2\">\n"
                           "    <Own />\n"
                           "    <Linear c=\"3\">inches</Linear>\n"
                           "    <Angular>degrees</Angular>\n"
                           "  </Units>\n"
                           "  <After>\n"
                           "    <Linear>feet</Linear>\n"
                           "  </After>\n"
                           "</Settings>\n");
}

TEST_F(UnitSettingsTest, AUnitThatIsMissingIsAdded)
{
    WriteBytes(path, "<Settings><Units><Linear>feet</Linear></Units></Settings>");
    EXPECT_EQ(Write(3, 3), Written("inches", "radians"));
    WriteBytes(path, "<Settings><Units/></Settings>");
    EXPECT_EQ(Write(3, 3), Written("inches", "radians"));
}

TEST_F(UnitSettingsTest, AFileWithoutUnitsGetsThem)
{
    WriteBytes(path, "<Settings><Other/></Settings>");
    EXPECT_EQ(Write(4, 0), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                           "<Settings>\n"
                           "  <Other />\n"
                           "  <Units>\n"
                           "    <Linear>feet</Linear>\n"
                           "    <Angular>degrees</Angular>\n"
                           "  </Units>\n"
                           "</Settings>\n");
}

TEST_F(UnitSettingsTest, ADamagedFileIsReplacedAndKeptBesideIt)
{
    const std::wstring copy = path + L".damaged";
    WriteBytes(path, "<Settings><Mine>x</Mine");
    EXPECT_EQ(Write(3, 0), Written("inches", "degrees"));
    EXPECT_EQ(ReadBytes(copy), "<Settings><Mine>x</Mine");
    WriteBytes(path, "damaged again");
    EXPECT_EQ(Write(4, 0), Written("feet", "degrees"));
    EXPECT_EQ(ReadBytes(copy), "<Settings><Mine>x</Mine") << "the older state stays";
}

TEST_F(UnitSettingsTest, ADamagedFileIsLoggedWithTheNameOfItsCopy)
{
    CVantrelLog::OpenLogFile(folder.File(L"log"));
    WriteBytes(path, "no xml");
    Write(3, 0);
    CVantrelLog::CloseLogFile();
    EXPECT_NE(ReadBytes(folder.File(L"log")).find("kept as " + Platform::WideToUtf8(path) + ".damaged"),
              std::string::npos);
}

TEST_F(UnitSettingsTest, AnEmptyFileIsReplacedWithoutACopy)
{
    WriteBytes(path, "");
    EXPECT_EQ(Write(3, 0), Written("inches", "degrees"));
    EXPECT_FALSE(Platform::PathExists(path + L".damaged"));
}

TEST_F(UnitSettingsTest, WhereNoFileCanBeWrittenNothingHappens)
{
    WriteUnits(folder.Path(), 3, 3); // a folder
    WriteUnits(folder.File(L"missing") + Platform::PathSeparator + L"settings.xml", 3, 3);
    WriteUnits(L"", 3, 3);
    EXPECT_TRUE(Platform::FolderExists(folder.Path()));
    EXPECT_FALSE(Platform::PathExists(folder.Path() + L".damaged"));
    EXPECT_FALSE(Platform::PathExists(folder.File(L"missing")));
}

// --- the user's file -------------------------------------------------------------------

TEST_F(UnitSettingsTest, AFirstStartWithoutAFallbackMakesAFileWithMillimetersAndDegrees)
{
    const ScopedEnvironment none("vantrel_data_dir", L"");
    Settings(true);
    EXPECT_EQ(units, (structRulesUnit{ 0, 0 }));
    EXPECT_EQ(ReadBytes(settings.UnitsFile()), Written("millimeters", "degrees"));
}

TEST_F(UnitSettingsTest, AFirstStartWithAFallbackTakesItsUnitsIntoTheUsersFile)
{
    const std::string fallback = FileWith("inches", "degrees");
    WriteFallback(fallback);
    Settings(true);
    EXPECT_EQ(units, (structRulesUnit{ 3, 0 }));
    EXPECT_EQ(ReadBytes(settings.UnitsFile()), Written("inches", "degrees"));
    EXPECT_EQ(ReadBytes(data.File(L"Settings") + Platform::PathSeparator + L"settings.xml"), fallback);
}

TEST_F(UnitSettingsTest, AFallbackThatCannotBeReadLeavesTheUnits)
{
    WriteFallback("no xml");
    units = { 4, 3 };
    Settings(true);
    EXPECT_EQ(units, (structRulesUnit{ 4, 3 }));
    EXPECT_EQ(ReadBytes(settings.UnitsFile()), Written("feet", "radians"));
    EXPECT_EQ(ReadBytes(data.File(L"Settings") + Platform::PathSeparator + L"settings.xml"), "no xml");
}

TEST_F(UnitSettingsTest, TheUsersFileGoesBeforeTheFallbackAndIsNotWrittenByReading)
{
    MakeFolders();
    const std::string own = FileWith("FEET", "radians");
    WriteBytes(settings.UnitsFile(), own);
    WriteFallback(FileWith("inches", "degrees"));
    Settings(true);
    EXPECT_EQ(units, (structRulesUnit{ 4, 3 }));
    EXPECT_EQ(ReadBytes(settings.UnitsFile()), own);
}

TEST_F(UnitSettingsTest, AUsersFileWithOnlyALengthLeavesTheAngleAndTheNextWriteAddsIt)
{
    MakeFolders();
    const std::string own = "<Settings><Units><Linear>feet</Linear></Units></Settings>";
    WriteBytes(settings.UnitsFile(), own);
    WriteFallback(FileWith("inches", "radians"));
    units = { 1, 2 };
    Settings(true);
    EXPECT_EQ(units, (structRulesUnit{ 4, 2 }));
    EXPECT_EQ(ReadBytes(settings.UnitsFile()), own);
    Settings(false);
    EXPECT_EQ(ReadBytes(settings.UnitsFile()), Written("feet", "degrees/minutes/seconds"));
}

TEST_F(UnitSettingsTest, AUsersFileWithoutUnitsGetsThoseOfTheFallback)
{
    MakeFolders();
    WriteBytes(settings.UnitsFile(), "<Settings><Other/></Settings>");
    WriteFallback(FileWith("mils", "radians"));
    Settings(true);
    EXPECT_EQ(units, (structRulesUnit{ 9, 3 }));
    const std::string after = ReadBytes(settings.UnitsFile());
    EXPECT_NE(after.find("<Other />"), std::string::npos) << after;
    EXPECT_NE(after.find("<Linear>mils</Linear>"), std::string::npos) << after;
}

TEST_F(UnitSettingsTest, ADamagedUsersFileIsReplacedWhenItIsReadAndKeptBesideIt)
{
    MakeFolders();
    WriteBytes(settings.UnitsFile(), "<Settings>");
    WriteFallback(FileWith("inches", "radians"));
    Settings(true);
    EXPECT_EQ(units, (structRulesUnit{ 3, 3 }));
    EXPECT_EQ(ReadBytes(settings.UnitsFile()), Written("inches", "radians"));
    EXPECT_EQ(ReadBytes(settings.UnitsFile() + L".damaged"), "<Settings>");
}

TEST_F(UnitSettingsTest, StoringDoesNotReadAndLeavesTheUnits)
{
    WriteFallback(FileWith("inches", "radians"));
    units = { 4, 1 };
    Settings(false);
    EXPECT_EQ(units, (structRulesUnit{ 4, 1 }));
    EXPECT_EQ(ReadBytes(settings.UnitsFile()), Written("feet", "degrees/minutes"));
}

TEST_F(UnitSettingsTest, WithoutAppdataNothingIsReadOrStored)
{
    WriteFallback(FileWith("inches", "radians"));
    const ScopedEnvironment none("appdata", L"");
    units = Untouched;
    Settings(true);
    Settings(false);
    EXPECT_EQ(units, Untouched);
    EXPECT_FALSE(Platform::PathExists(Platform::FolderPart(settings.UnitsFile())));
}

TEST_F(UnitSettingsTest, TheFoldersAreMadeOneAtATimeAndNoneAboveThem)
{
    const ScopedEnvironment missing("appdata", folder.File(L"missing"));
    units = { 4, 3 };
    Settings(true);
    Settings(false);
    EXPECT_EQ(units, (structRulesUnit{ 4, 3 }));
    EXPECT_FALSE(Platform::PathExists(folder.File(L"missing")));
}

TEST_F(UnitSettingsTest, AFolderThatCannotBeMadeLeavesTheFallbacksUnits)
{
    WriteFallback(FileWith("inches", "radians"));
    WriteBytes(folder.File(L"OrvaneLtd"), "a file in the way");
    const ScopedEnvironment blocked("appdata", folder.Path());
    Settings(true);
    EXPECT_EQ(units, (structRulesUnit{ 3, 3 }));
    EXPECT_EQ(ReadBytes(folder.File(L"OrvaneLtd")), "a file in the way");
}
