#include "Document/RulePassword.h"
#include "Platform/Files.h"
#include "Platform/Text.h"
#include "tests/Document/RecordTest.h"
#include "tests/Support/TestFiles.h"
#include "Utilities/Hash.h"
#include "Utilities/QOXUIUtils.h"

#include <Vantrel/ConcreteQOXRule.h>
#include <Vantrel/QoxXml.h>

#include <memory>
#include <vector>

namespace
{

/// A record with the rules that were read into it, which it doesn't own.
class LoadedRecord
{
public:
    LoadedRecord(const std::wstring& path, IUserPrompt& prompt)
        : record(&prompt), loaded(record.LoadRuleFile(ToNarrow(path)))
    {
        PointerArray found;
        record.GetRules(found);
        for (CQoxRule* const rule : found)
        {
            rules.emplace_back(rule);
        }
    }

    CQOXRMLumeq record;
    bool loaded;
    std::vector<std::unique_ptr<CQoxRule>> rules;
};

class RuleFileProtectionTest : public RecordTest
{
protected:
    /// Writes the record with a password; the bytes of the file.
    std::string WriteProtected()
    {
        EXPECT_TRUE(record.SetPassword(L"secret"));
        EXPECT_TRUE(record.WriteRuleFile(ToNarrow(path)));
        return ReadBytes(path);
    }

    void Replace(std::string bytes, const std::string& before, const std::string& after) const
    {
        const std::size_t found = bytes.find(before);
        ASSERT_NE(found, std::string::npos) << before << " in " << bytes;
        WriteBytes(path, bytes.replace(found, before.size(), after));
    }

    std::vector<std::wstring>& Boxes() { return application->prompt.texts; }
};

/// A rule whose element has a name of its own.
class ForeignRule : public ConcreteQOXRule
{
public:
    using ConcreteQOXRule::operator=;

    QoxXMLNode* GetXML() override { return g_pXmlDoc->CreateNode(L"Comment"); }
};

const std::vector<std::wstring> ModifiedBox = { L"Rule File is modifed..." };

std::string AttributeOf(const std::string& bytes, const std::string& name)
{
    const std::size_t start = bytes.find(" " + name + "=\"");
    if (start == std::string::npos)
    {
        return "missing";
    }
    const std::size_t value = start + name.size() + 3;
    return bytes.substr(value, bytes.find('"', value) - value);
}

} // namespace

TEST_F(RuleFileProtectionTest, PasswordAndDigestFollowTheSixAttributes)
{
    Add(L"A");
    const std::string bytes = WriteProtected();
    const std::string packed = Platform::WideToUtf8(RulePassword::Pack(L"secret").value());
    EXPECT_NE(bytes.find(" Version=\"v3.3\" Password=\"" + packed + "\" RulesData=\""), std::string::npos) << bytes;
    EXPECT_EQ(AttributeOf(bytes, "RulesData").size(), 32u);
}

TEST_F(RuleFileProtectionTest, AFileWithoutAPasswordHasNeitherAttribute)
{
    Add(L"A");
    EXPECT_TRUE(record.WriteRuleFile(ToNarrow(path)));
    EXPECT_EQ(AttributeOf(ReadBytes(path), "Password"), "missing");
    EXPECT_EQ(AttributeOf(ReadBytes(path), "RulesData"), "missing");
}

TEST_F(RuleFileProtectionTest, TheDigestIsThatOfTheRulesMarkupInUnitsOfSixteenBits)
{
    Add(L"R\u00E8gle \U0001F600");
    Add(L"B").m_nRuleState = 2; // isn't written
    Add(L"C");
    const std::string bytes = WriteProtected();

    QoxXMLDocument document;
    const std::unique_ptr<QoxXMLNode> root(document.LoadFromFile(path));
    const std::unique_ptr<QoxXMLNodeList> rules(root->GetNodeList(L"Rule"));
    ASSERT_EQ(rules->GetSize(), 2);
    std::string units;
    for (const long index : { 0L, 1L })
    {
        const std::unique_ptr<QoxXMLNode> rule((*rules)[index]);
        for (const char16_t unit : Platform::WideToUtf16(rule->GetXML()))
        {
            units += static_cast<char>(unit & 0xFF);
            units += static_cast<char>(unit >> 8);
        }
    }
    const std::wstring hashed = folder.File(L"units");
    WriteBytes(hashed, units);
    std::wstring digest;
    ASSERT_NE(MD5OfFile(hashed, digest), 0);
    EXPECT_EQ(AttributeOf(bytes, "RulesData"), Platform::WideToUtf8(digest));
}

TEST_F(RuleFileProtectionTest, AnElementThatIsNoRuleHasNoPartInTheDigest)
{
    ForeignRule foreign;
    std::int32_t index = 0;
    record.AddRuleInFile(&foreign, index);
    std::string bytes = WriteProtected();
    EXPECT_NE(bytes.find("<Comment />"), std::string::npos) << bytes;
    EXPECT_EQ(AttributeOf(bytes, "RulesData"), "") << "as without rules";
    Add(L"A");
    bytes = WriteProtected();
    EXPECT_EQ(AttributeOf(bytes, "RulesData").size(), 32u);
    const LoadedRecord read(path, application->prompt);
    EXPECT_TRUE(read.record.IsPasswordProtected());
    EXPECT_TRUE(Boxes().empty()) << "nobody has changed it";
}

TEST_F(RuleFileProtectionTest, AProtectedFileIsReadWithItsPasswordAndWithoutAWord)
{
    Add(L"A");
    WriteProtected();
    const LoadedRecord read(path, application->prompt);
    EXPECT_TRUE(read.loaded);
    EXPECT_TRUE(read.record.IsPasswordProtected());
    std::wstring password;
    read.record.GetPassword(password);
    EXPECT_EQ(password, L"secret");
    EXPECT_TRUE(Boxes().empty());
}

TEST_F(RuleFileProtectionTest, OneCharacterChangedInARuleGivesTheMessageAndAllRulesAreRead)
{
    Add(L"Alpha");
    Add(L"Beta");
    Replace(WriteProtected(), "Alpha", "Alphb");
    const LoadedRecord read(path, application->prompt);
    EXPECT_TRUE(read.loaded);
    EXPECT_EQ(Boxes(), ModifiedBox);
    ASSERT_EQ(read.rules.size(), 2u);
    EXPECT_EQ(read.rules[0]->m_strRuleName, L"Alphb");
    EXPECT_TRUE(read.record.IsPasswordProtected());
}

TEST_F(RuleFileProtectionTest, RulesThatChangedPlacesGiveTheMessage)
{
    Add(L"Alpha");
    Add(L"Beta");
    const std::string bytes = WriteProtected();
    Replace(bytes, "Alpha", "Gamma");
    Replace(ReadBytes(path), "Beta", "Alpha");
    Replace(ReadBytes(path), "Gamma", "Beta");
    const LoadedRecord read(path, application->prompt);
    EXPECT_EQ(Boxes(), ModifiedBox);
}

TEST_F(RuleFileProtectionTest, ChangingOnlyAttributesOfTheRootGivesNoMessage)
{
    Add(L"A");
    Replace(WriteProtected(), "Name=\"\" Createdby=\"\" CreatedOn=\"\" Unit=\"0\"",
            "Name=\"n\" Createdby=\"b\" CreatedOn=\"o\" Unit=\"3\" Other=\"1\"");
    const LoadedRecord read(path, application->prompt);
    EXPECT_EQ(read.record.newRuleUnits.linear, 3);
    EXPECT_TRUE(Boxes().empty());
}

TEST_F(RuleFileProtectionTest, IndentationDoesNotCount)
{
    Add(L"A");
    Add(L"B");
    std::string bytes = WriteProtected();
    for (std::size_t found = bytes.find("\n  "); found != std::string::npos; found = bytes.find("\n  "))
    {
        bytes.erase(found, 3);
    }
    WriteBytes(path, bytes);
    const LoadedRecord read(path, application->prompt);
    EXPECT_EQ(read.rules.size(), 2u);
    EXPECT_TRUE(Boxes().empty());
}

TEST_F(RuleFileProtectionTest, ADigestInAnotherCaseIsAnotherDigest)
{
    Add(L"A");
    const std::string bytes = WriteProtected();
    std::string digest = AttributeOf(bytes, "RulesData");
    const std::string before = digest;
    for (char& c : digest)
    {
        c = c >= 'a' && c <= 'f' ? static_cast<char>(c - 'a' + 'A') : c;
    }
    ASSERT_NE(digest, before);
    Replace(bytes, before, digest);
    const LoadedRecord read(path, application->prompt);
    EXPECT_EQ(Boxes(), ModifiedBox);
}

TEST_F(RuleFileProtectionTest, AFileWhoseDigestWasRemovedOpensAsUnprotected)
{
    Add(L"A");
    const std::string bytes = WriteProtected();
    Replace(bytes, " RulesData=\"" + AttributeOf(bytes, "RulesData") + "\"", "");
    const LoadedRecord read(path, application->prompt);
    EXPECT_TRUE(read.loaded);
    EXPECT_FALSE(read.record.IsPasswordProtected());
    EXPECT_TRUE(read.record.strPasswordInRuleFile.empty());
    EXPECT_TRUE(Boxes().empty());
}

TEST_F(RuleFileProtectionTest, WithoutRulesTheDigestIsEmptyAndTheProtectionIsLost)
{
    const std::string bytes = WriteProtected();
    EXPECT_NE(AttributeOf(bytes, "Password"), "missing");
    EXPECT_EQ(AttributeOf(bytes, "RulesData"), "");
    const LoadedRecord read(path, application->prompt);
    EXPECT_TRUE(read.loaded);
    EXPECT_FALSE(read.record.IsPasswordProtected());
    EXPECT_TRUE(Boxes().empty());
}

TEST_F(RuleFileProtectionTest, TheFileOfUserDefinedRulesNeverCarriesADigest)
{
    Add(L"A");
    ASSERT_TRUE(record.SetPassword(L"secret"));
    ASSERT_TRUE(record.WriteUserFile(path));
    EXPECT_NE(AttributeOf(ReadBytes(path), "Password"), "missing");
    EXPECT_EQ(AttributeOf(ReadBytes(path), "RulesData"), "missing");
}

TEST_F(RuleFileProtectionTest, APasswordThatIsTooLongIsNotTaken)
{
    EXPECT_FALSE(record.SetPassword(std::wstring(189, L'k')));
    EXPECT_FALSE(record.IsPasswordProtected());
    EXPECT_TRUE(record.strPasswordInRuleFile.empty());
    EXPECT_TRUE(record.SetPassword(std::wstring(188, L'k')));
}

TEST_F(RuleFileProtectionTest, ALongerPasswordThanAFileCanHaveIsNeverWrittenInPart)
{
    WriteBytes(path, "before");
    record.bIsRuleFilePasswordProtected = true;
    record.strPasswordInRuleFile = std::wstring(189, L'k');
    EXPECT_FALSE(record.WriteRuleFile(ToNarrow(path)));
    EXPECT_FALSE(record.WriteUserFile(path));
    EXPECT_EQ(ReadBytes(path), "before");
}

TEST_F(RuleFileProtectionTest, TheDigestOfARootWithoutRulesIsEmpty)
{
    WriteBytes(path, "<Lumeq><Other/></Lumeq>");
    QoxXMLDocument document;
    const std::unique_ptr<QoxXMLNode> root(document.LoadFromFile(path));
    std::wstring digest = L"before";
    CQOXRMLumeq::ComputeDigest(*root, digest);
    EXPECT_EQ(digest, L"");
}

TEST_F(RuleFileProtectionTest, OddTextsOfRulesAreReadBackWithTheirDigest)
{
    for (const wchar_t* const text :
         { L"", L" ", L"\n", L"a\r\nb\rc\td", L"\x1\x1F", L"<&>\"'", L"\uFFFE\U0010FFFF", L"]]>" })
    {
        ConcreteQOXRule& rule = Add(text);
        rule.m_strSummary = text;
        rule.m_references = { text, L"" };
        rule.m_strModulePath = text;
    }
    WriteProtected();
    const LoadedRecord read(path, application->prompt);
    EXPECT_EQ(read.rules.size(), 8u);
    EXPECT_TRUE(Boxes().empty());
}

TEST_F(RuleFileProtectionTest, WhatIsKeptUnreadIsPartOfTheDigest)
{
    WriteBytes(path,
               "<Lumeq><Rule RuleModule='VSTA Rule' Later='&#10;'>text<!-- note --><Deep> </Deep><Deep><![CDATA[ ]]>"
               "</Deep></Rule></Lumeq>");
    {
        LoadedRecord read(path, application->prompt);
        ASSERT_EQ(read.rules.size(), 1u);
        ASSERT_TRUE(read.record.SetPassword(L"secret"));
        ASSERT_TRUE(read.record.WriteRuleFile(ToNarrow(path)));
    }
    ASSERT_NE(ReadBytes(path).find("Deep"), std::string::npos);
    const LoadedRecord read(path, application->prompt);
    EXPECT_TRUE(read.record.IsPasswordProtected());
    EXPECT_TRUE(Boxes().empty());
}
