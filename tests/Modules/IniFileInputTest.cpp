// What CIniFile makes of files that nobody wrote on purpose.

#include "Modules/IniFile.h"

#include "Modules/IniFileText.h"
#include "Platform/Files.h"
#include "tests/Modules/IniFileFixture.h"
#include "tests/Support/TestFiles.h"

#include <gmock/gmock.h>
#include <Vantrel/VantrelLog.h>

#include <algorithm>
#include <functional>
#include <optional>

using testing::ElementsAre;

namespace
{

class IniFileInputTest : public IniFileFixture
{
};

struct Operation
{
    const char* name;
    std::function<bool(const CIniFile&, const std::string& file)> run;
};

/// Every operation that loads the file. The result is whether it gave anything.
std::vector<Operation> LoadingOperations()
{
    using File = const CIniFile&;
    using Name = const std::string&;
    return {
        { "Load",
          [](File file, Name name)
          {
              CIniFile::Records records(2);
              return file.Load(name, records) || !records.empty();
          } },
        { "AddSection", [](File file, Name name) { return file.AddSection("A", name); } },
        { "AddRecord", [](File file, Name name) { return file.AddRecord("k", "v", "A", name); } },
        { "SetValue", [](File file, Name name) { return file.SetValue("k", "v", "A", name); } },
        { "GetValue", [](File file, Name name) { return !file.GetValue("k", "A", name).empty(); } },
        { "GetRecord", [](File file, Name name) { return !file.GetRecord("k", "A", name).empty(); } },
        { "GetSectionRecords", [](File file, Name name) { return !file.GetSectionRecords("A", name).empty(); } },
        { "RecordExists", [](File file, Name name) { return file.RecordExists("k", "A", name); } },
        { "SectionExists", [](File file, Name name) { return file.SectionExists("A", name); } },
        { "DeleteRecord", [](File file, Name name) { return file.DeleteRecord("k", "A", name); } },
        { "DeleteSection", [](File file, Name name) { return file.DeleteSection("A", name); } },
        { "CommentRecord", [](File file, Name name) { return file.CommentRecord('#', "k", "A", name); } },
        { "UnCommentRecord", [](File file, Name name) { return file.UnCommentRecord("k", "A", name); } },
        { "CommentSection", [](File file, Name name) { return file.CommentSection('#', "A", name); } },
        { "UnCommentSection", [](File file, Name name) { return file.UnCommentSection("A", name); } },
        { "SetRecordComments", [](File file, Name name) { return file.SetRecordComments("# c", "k", "A", name); } },
        { "SetSectionComments", [](File file, Name name) { return file.SetSectionComments("# c", "A", name); } },
        { "RenameSection", [](File file, Name name) { return file.RenameSection("A", "B", name); } },
        { "GetSections", [](File file, Name name) { return !file.GetSections(name).empty(); } },
        { "GetSectionNames", [](File file, Name name) { return !file.GetSectionNames(name).empty(); } },
        { "Sort", [](File file, Name name) { return file.Sort(name, false); } },
        { "Content", [](File file, Name name) { return !file.Content(name).empty(); } },
    };
}

} // namespace

TEST_F(IniFileInputTest, OnASoundFileEveryOperationSucceeds)
{
    for (const Operation& operation : LoadingOperations())
    {
        Write("[A]\nk=v\n");
        EXPECT_TRUE(operation.run(m_file, m_name)) << operation.name;
    }
}

TEST_F(IniFileInputTest, OnAMissingFileEveryOperationFailsAndMakesNone)
{
    for (const Operation& operation : LoadingOperations())
    {
        EXPECT_FALSE(operation.run(m_file, m_name)) << operation.name;
        EXPECT_FALSE(Platform::PathExists(m_path)) << operation.name;
    }
}

TEST_F(IniFileInputTest, OnASectionLineWithoutItsBracketEveryOperationFailsAndLeavesTheFile)
{
    const std::string malformed = "[A]\nk=v\n[abc\nx=y\n";
    Write(malformed);
    for (const Operation& operation : LoadingOperations())
    {
        EXPECT_FALSE(operation.run(m_file, m_name)) << operation.name;
        EXPECT_EQ(Bytes(), malformed) << operation.name;
    }
    EXPECT_TRUE(m_file.FileExists(m_name));
}

TEST_F(IniFileInputTest, ASectionLineWithoutItsBracketIsLoggedOnceForEachLoad)
{
    const std::wstring log = m_folder.File(L"log");
    Write("[abc\n[def\n");
    CVantrelLog::OpenLogFile(log);
    EXPECT_FALSE(m_file.AddSection("A", m_name));
    CVantrelLog::CloseLogFile();
    const std::string text = ReadBytes(log);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 1) << text;
    EXPECT_THAT(text, testing::HasSubstr("ConfigModule.ini"));
}

TEST_F(IniFileInputTest, AFileThatCanNotBeOpenedIsNotLogged)
{
    const std::wstring log = m_folder.File(L"log");
    CVantrelLog::OpenLogFile(log);
    EXPECT_FALSE(m_file.AddSection("A", m_name));
    CVantrelLog::CloseLogFile();
    EXPECT_EQ(ReadBytes(log), "");
}

TEST_F(IniFileInputTest, EveryFormOfASectionLineWithoutItsBracketFails)
{
    for (const char* const line : { "[", "[abc", "; see [abc", ";[", "#  [", "k=[v", "x[", "][", "a]b[c" })
    {
        const bool parsed = IniFileText::Parse(std::string(line) + "\n").has_value();
        // Only the bracket behind the first character closes a section line.
        EXPECT_EQ(parsed, std::string_view(line) == "a]b[c") << line;
        EXPECT_TRUE(IniFileText::Parse(line).has_value()) << line << ": without a line end the line isn't seen";
    }
}

TEST_F(IniFileInputTest, AByteOrderMarkIsPartOfTheFirstLine)
{
    Write("\xEF\xBB\xBFk=v\n[A]\n");
    EXPECT_EQ(m_file.GetValue("k", "", m_name), "");
    EXPECT_EQ(m_file.GetValue("\xEF\xBB\xBFk", "", m_name), "v");
    EXPECT_TRUE(LoadAndSave());
    EXPECT_EQ(Saved(), " \xEF\xBB\xBFk=v\n [A]\n");

    Write("\xEF\xBB\xBF[A]\nk=v\n");
    EXPECT_FALSE(m_file.SectionExists("A", m_name));
    EXPECT_THAT(m_file.GetSectionNames(m_name), ElementsAre("\xBB\xBF[A")) << "only the line's first byte goes";
}

TEST_F(IniFileInputTest, ZeroBytesAreBytesLikeOthers)
{
    using std::string_literals::operator""s;
    const std::string text = "[A\0B]\nk\0=v\0w\n\0\n"s;
    Write(text);
    EXPECT_EQ(m_file.GetValue("k\0"s, "A\0B"s, m_name), "v\0w"s);
    EXPECT_THAT(Described(Loaded()), ElementsAre("[A\0B] ="s, "[A\0B] k\0=v\0w"s, "[] ="));
    EXPECT_FALSE(m_file.SectionExists("A", m_name));
    EXPECT_TRUE(LoadAndSave());
    EXPECT_EQ(Saved(), " [A\0B]\n k\0=v\0w\n []\n"s);
}

TEST_F(IniFileInputTest, LinesOfAMegabyteAreReadWhole)
{
    const std::string megabyte(std::size_t(1) << 20, 'x');
    Write("[" + megabyte + "]\n" + megabyte + "=" + megabyte + "\n#" + megabyte + "\n[A]\n");
    EXPECT_EQ(m_file.GetValue(megabyte, megabyte, m_name), megabyte);
    const CIniFile::Records header = m_file.GetRecord("", "A", m_name);
    ASSERT_EQ(header.size(), 1U);
    EXPECT_EQ(header.front().Comments, "#" + megabyte + "\n");
}

TEST_F(IniFileInputTest, LinesOfAMegabyteOfOneCharacterAreRead)
{
    for (const char character : std::string_view(" \t\r\n#;[]=x\0\xFF", 12))
    {
        const std::string line(std::size_t(1) << 20, character);
        const std::optional<CIniFile::Records> records = IniFileText::Parse(line + "\n");
        EXPECT_EQ(records.has_value(), character != '[') << static_cast<int>(character);
        EXPECT_LE(records ? records->size() : 0, 1U);
    }
}

TEST_F(IniFileInputTest, ManySectionsAreGroupedInTheOrderOfTheirFirstRecords)
{
    // Far too many for a search through all sections at each record.
    constexpr int Sections = 60'000;
    CIniFile::Records records;
    for (int round = 0; round < 2; ++round)
    {
        for (int number = 0; number < Sections; ++number)
        {
            records.push_back({ {}, ' ', std::to_string(number), "k" + std::to_string(round), {} });
        }
    }
    IniFileText::GroupBySection(records);
    ASSERT_EQ(records.size(), 2U * Sections);
    for (std::size_t index = 0; index < records.size(); ++index)
    {
        ASSERT_EQ(records[index].Section, std::to_string(index / 2));
        ASSERT_EQ(records[index].Key, index % 2 == 0 ? "k0" : "k1");
    }
}

TEST_F(IniFileInputTest, ALongSectionNameWithManyKeysFailsInsteadOfFillingTheMemory)
{
    // Each key's record names its section: these two megabytes would take a terabyte.
    std::string text = "[" + std::string(std::size_t(1) << 20, 's') + "]\n";
    for (int line = 0; line < 400'000; ++line)
    {
        text += "=\n";
    }
    EXPECT_FALSE(IniFileText::Parse(text).has_value());
}

TEST_F(IniFileInputTest, AFileOfManyOrdinaryLinesIsRead)
{
    std::string text = "[RULE_CONFIGURATION_MODULES]\n";
    for (int line = 0; line < 200'000; ++line)
    {
        text += "module" + std::to_string(line) + "=x\n";
    }
    const std::optional<CIniFile::Records> records = IniFileText::Parse(text);
    ASSERT_TRUE(records.has_value());
    EXPECT_EQ(records->size(), 200'001U);
}

TEST_F(IniFileInputTest, SortingThatWouldRepeatKeysWithoutEndFailsAndLeavesTheFile)
{
    std::string text;
    for (int line = 0; line < 20'000; ++line)
    {
        text += "[A]\nk=v\n";
    }
    Write(text);
    EXPECT_FALSE(m_file.Sort(m_name, false));
    EXPECT_EQ(Bytes(), text);
}

TEST_F(IniFileInputTest, AFileThatIsCutAnywhereLoadsItsWholeLinesAndSavesThemTheSameAgain)
{
    const std::string sample = "# rule modules\r\n"
                               " [RULE_CONFIGURATION_MODULES]\n"
                               " module1=C:\\Program Files\\Rules\\QoxMillRulesu.dll\n"
                               ";module2=%HOME_DIR%\\x.dll\n"
                               "# two\n; comments\n"
                               " module3=/opt/rules/a=b.so\n"
                               "\n"
                               " [RULE_SCRIPT_LOCATION]\n"
                               " directory=\n"
                               "#[HELP_EDITOR]\n"
                               " [RULE_SCRIPT_LOCATION]\n"
                               "# end\n";
    for (std::size_t length = 0; length <= sample.size(); ++length)
    {
        SCOPED_TRACE(length);
        const std::string cut = sample.substr(0, length);
        Write(cut);
        CIniFile::Records records;
        ASSERT_TRUE(m_file.Load(m_name, records));
        EXPECT_EQ(records, IniFileText::Parse(cut.substr(0, cut.rfind('\n') + 1)));
        ASSERT_TRUE(m_file.Save(m_name, records));
        const std::string saved = Bytes();
        EXPECT_EQ(Loaded(), records);
        ASSERT_TRUE(LoadAndSave());
        EXPECT_EQ(Bytes(), saved);
    }
}

TEST_F(IniFileInputTest, EachDefectOfTheCorpusIsReadByTheRules)
{
    using std::string_literals::operator""s;
    struct Defect
    {
        const char* file;
        std::optional<std::string> content; // nothing if the file isn't read
    };
    const std::vector<Defect> defects = {
        { "empty", "" },
        { "bracket-in-value", "[A]\nodule1=C:\\Rules [old\nmodule2=x\n" },
        { "bracket-not-closed", std::nullopt },
        { "bracket-not-closed-in-comment", std::nullopt },
        { "bracket-not-closed-in-value", std::nullopt },
        { "byte-order-mark", "[\xBB\xBF[A]\nk=v\n"s },
        { "carriage-returns", "# c\n[A]\nk=v\n" },
        { "carriage-returns-only", "" },
        { "comments-at-end", "[A]\n" },
        { "data-without-section", "k=v\n[A]\n" },
        { "equals-sign-in-header", "A=B\nk=v\n" },
        { "header-empty", "[]\nk=v\n" },
        { "header-repeated", "[A]\nk=1\n[B]\n[A]\nk=2\n" },
        { "key-empty", "[A]\n[A]\n" },
        { "key-repeated", "[A]\nk=1\nk=2\n" },
        { "last-line-not-ended", "[A]\n" },
        { "line-without-data", "[A]\n[]\nk=v\n" },
        { "not-text", "[\x80\xFF]\n\xC3=\xFE\n"s },
        { "text-behind-bracket", "[A]\nk=v\n" },
        { "zero-bytes", "[A\0]\nk=v\0\n"s },
    };
    const std::wstring folder = Platform::Utf8ToWide(VANTREL_TEST_DATA_DIR "/ini/");
    for (const Defect& defect : defects)
    {
        SCOPED_TRACE(defect.file);
        WriteBytes(m_path, ReadBytes(folder + Platform::Utf8ToWide(defect.file) + L".ini"));
        const std::string before = Bytes();
        CIniFile::Records records;
        EXPECT_EQ(m_file.Load(m_name, records), defect.content.has_value());
        EXPECT_EQ(m_file.Content(m_name), defect.content.value_or(""));
        EXPECT_EQ(m_file.SetValue("k", "v", "Z", m_name), defect.content.has_value());
        EXPECT_EQ(Bytes() == before, !defect.content.has_value());
    }
}
