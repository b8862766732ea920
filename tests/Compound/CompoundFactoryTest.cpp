#include "Compound/CompoundObject.h"
#include "Compound/MSMemoryFile.h"
#include "Platform/Files.h"
#include "tests/Compound/MSCompoundTools.h"
#include "tests/Compound/TestArchive.h"
#include "tests/Compound/TestDocument.h"
#include "tests/Compound/TestStreams.h"
#include "tests/Support/TestFiles.h"

#include <gtest/gtest.h>

#include <string>

namespace
{

class CompoundFactoryTest : public testing::Test
{
protected:
    std::uint32_t Create(const std::wstring& target, std::uint32_t mode)
    {
        return CreateCompoundDocument(target.c_str(), mode, CompoundTypeZip, &document);
    }

    ~CompoundFactoryTest() override { CloseCompoundDocument(&document); }

    TemporaryFolder folder;
    std::wstring path = folder.File(L"package.zip");
    ICompoundDocument* document = nullptr;
};

/// A document that no flavour has made.
class ForeignDocument : public ICompoundDocument
{
public:
    using ICompoundDocument::ICompoundDocument;
    ICompoundFolder* GetRootFolder() override { return nullptr; }
};

} // namespace

TEST_F(CompoundFactoryTest, AnUnknownTypeGivesZeroAndLeavesThePointerAlone)
{
    ForeignDocument foreign(2);
    ICompoundDocument* untouched = &foreign;
    WriteBytes(path, "kept");
    EXPECT_EQ(CreateCompoundDocument(path.c_str(), 10, 2, &untouched), 0u);
    EXPECT_EQ(untouched, &foreign);
    EXPECT_EQ(ReadBytes(path), "kept");
}

TEST_F(CompoundFactoryTest, WithoutTheBitForOverwritingAnExistingFileIsAnError)
{
    WriteBytes(path, "kept");
    EXPECT_EQ(Create(path, 8), CompoundErrorExists);
    EXPECT_EQ(CompoundErrorExists, 16386u);
    EXPECT_EQ(document, nullptr);
    EXPECT_EQ(ReadBytes(path), "kept");
}

TEST_F(CompoundFactoryTest, ModeTenReplacesAnExistingFile)
{
    WriteBytes(path, std::string(1000, 'x'));
    EXPECT_EQ(Create(path, 10), 0u);
    ASSERT_NE(document, nullptr);
    EXPECT_NE(document->GetRootFolder(), nullptr);
    EXPECT_EQ(CloseCompoundDocument(&document), 0u);
    EXPECT_EQ(ReadBytes(path), std::string("PK\5\6") + std::string(18, '\0'));
}

TEST_F(CompoundFactoryTest, AMissingFileCantBeOpened)
{
    ForeignDocument foreign(1);
    document = &foreign;
    EXPECT_EQ(Create(path, 5), CompoundErrorNotFound);
    EXPECT_EQ(CompoundErrorNotFound, 16385u);
    EXPECT_EQ(document, nullptr);
    EXPECT_EQ(Create(folder.Path(), 5), CompoundErrorNotFound) << "a folder isn't a file";
    EXPECT_EQ(CreateCompoundDocument(nullptr, 5, CompoundTypeZip, &document), CompoundErrorNotFound);
    EXPECT_FALSE(Platform::PathExists(path));
}

TEST_F(CompoundFactoryTest, ReadingComesBeforeWritingInAModeWithBoth)
{
    EXPECT_EQ(Create(path, 14), CompoundErrorNotFound);
    WriteBytes(path, WriteArchive({ { L"a", "b" } }));
    const std::string before = ReadBytes(path);
    EXPECT_EQ(Create(path, 14), 0u);
    ASSERT_NE(document, nullptr);
    EXPECT_NE(document->GetRootFolder()->OpenFile(L"a", 14), nullptr);
    CloseCompoundDocument(&document);
    EXPECT_EQ(ReadBytes(path), before);
}

TEST_F(CompoundFactoryTest, ZeroDoesntPromiseAUsableDocument)
{
    EXPECT_EQ(Create(folder.File(L"missing/package.zip"), 10), 0u);
    ASSERT_NE(document, nullptr);
    EXPECT_EQ(document->GetRootFolder(), nullptr);
    EXPECT_EQ(CloseCompoundDocument(&document), 0u);
    EXPECT_EQ(document, nullptr);
}

TEST_F(CompoundFactoryTest, TheTypeIsWhatTheCallerSaysAndNotWhatTheFileIs)
{
    WriteBytes(path, "no archive");
    EXPECT_EQ(Create(path, 5), 0u);
    ASSERT_NE(document, nullptr);
    EXPECT_EQ(document->type, CompoundTypeZip);
}

TEST_F(CompoundFactoryTest, TypeZeroMakesAndReadsStructuredStorageByTheSameRules)
{
    const auto create = [this](std::uint32_t mode)
    { return CreateCompoundDocument(path.c_str(), mode, CompoundTypeStructured, &document); };
    EXPECT_EQ(CompoundTypeStructured, 0u);
    EXPECT_EQ(create(5), CompoundErrorNotFound);
    EXPECT_EQ(document, nullptr);
    WriteBytes(path, "kept");
    EXPECT_EQ(create(8), CompoundErrorExists);
    EXPECT_EQ(ReadBytes(path), "kept");

    ASSERT_EQ(create(10), 0u);
    ASSERT_NE(document, nullptr);
    EXPECT_EQ(document->type, CompoundTypeStructured);
    ASSERT_NE(document->GetRootFolder(), nullptr);
    ICompoundFile* const written = OpenFileByPath(document->GetRootFolder(), L"a.bas", 10);
    ASSERT_NE(written, nullptr);
    EXPECT_EQ(written->GetOutputStream()->Write("abc", 3), 3u);
    EXPECT_EQ(CloseCompoundDocument(&document), 0u);
    EXPECT_EQ(document, nullptr);
    EXPECT_EQ(ReadBytes(path).substr(0, 4), "\xD0\xCF\x11\xE0");

    ASSERT_EQ(create(5), 0u);
    ASSERT_NE(document->GetRootFolder(), nullptr);
    ICompoundFile* const read = OpenFileByPath(document->GetRootFolder(), L"a.bas", 5);
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(ReadToEnd(*read->GetInputStream()), "abc");
    EXPECT_EQ(CloseCompoundDocument(&document), 0u);
}

TEST_F(CompoundFactoryTest, ClosingNoDocumentDoesNothing)
{
    EXPECT_EQ(CloseCompoundDocument(&document), 0u);
    EXPECT_EQ(CloseCompoundDocument(nullptr), 0u);
}

TEST_F(CompoundFactoryTest, ADocumentOfAnotherFlavourIsLeftOpen)
{
    ForeignDocument foreign(2);
    ICompoundDocument* pointer = &foreign;
    EXPECT_EQ(CloseCompoundDocument(&pointer), 0xFFFFFFFFu);
    EXPECT_EQ(pointer, &foreign);
    ForeignDocument pretender(CompoundTypeZip);
    pointer = &pretender;
    EXPECT_EQ(CloseCompoundDocument(&pointer), CompoundErrorFlavour);
    EXPECT_EQ(pointer, &pretender);
}

TEST_F(CompoundFactoryTest, OnlyTheStructuredFlavourHasDocumentsOnMemory)
{
    ForeignDocument foreign(1);
    ICompoundDocument* untouched = &foreign;
    EXPECT_EQ(CreateCompoundDocumentOnMemory(nullptr, 10, CompoundTypeZip, &untouched), 0xFFFFFFFFu);
    EXPECT_EQ(CreateCompoundDocumentOnMemory(nullptr, 10, 2, &untouched), 0xFFFFFFFFu);
    EXPECT_EQ(untouched, &foreign);
}

TEST_F(CompoundFactoryTest, DefinitionsCopyTheirNameAndKeepANullOne)
{
    std::wstring name = L"a.bas";
    const GDCompoundDefinition definition(name.c_str(), CompoundEntryFile);
    name = L"other";
    EXPECT_STREQ(definition.GetName(), L"a.bas");
    EXPECT_EQ(definition.GetKind(), 1u);
    EXPECT_EQ(GDCompoundDefinition(nullptr, CompoundEntryFolder).GetName(), nullptr);
    EXPECT_EQ(GDCompoundDefinition().GetName(), nullptr);
    EXPECT_EQ(GDCompoundDefinition().GetKind(), 0u);
}

TEST_F(CompoundFactoryTest, ADocumentCarriesItsPathAndModeAndHasNoParent)
{
    EXPECT_EQ(Create(path, 10), 0u);
    const auto* const object = dynamic_cast<const CompoundObject*>(document);
    ASSERT_NE(object, nullptr);
    EXPECT_EQ(object->Mode(), 10u);
    EXPECT_EQ(object->Name(), path);
    EXPECT_EQ(object->Parent(), nullptr);
}

TEST_F(CompoundFactoryTest, AStructuredDocumentCarriesItsPathAndOneOnMemoryHasNoName)
{
    ASSERT_EQ(CreateCompoundDocument(path.c_str(), 10, CompoundTypeStructured, &document), 0u);
    EXPECT_EQ(dynamic_cast<const CompoundObject&>(*document).Name(), path);
    EXPECT_EQ(CloseCompoundDocument(&document), 0u);
    MSMemoryFile memory;
    ASSERT_EQ(CreateCompoundDocumentOnMemory(&memory, 10, CompoundTypeStructured, &document), 0u);
    EXPECT_EQ(dynamic_cast<const CompoundObject&>(*document).Name(), nullptr);
    CloseCompoundDocument(&document); // before its memory goes
}

TEST_F(CompoundFactoryTest, ADocumentOnMemoryIsReadBackFromIt)
{
    MSMemoryFile memory;
    ASSERT_EQ(CreateCompoundDocumentOnMemory(&memory, 10, CompoundTypeStructured, &document), 0u);
    ASSERT_NE(document, nullptr);
    ASSERT_NE(document->GetRootFolder(), nullptr);
    ASSERT_TRUE(PutFile(document->GetRootFolder(), L"a.bas", "abc"));
    EXPECT_EQ(CloseCompoundDocument(&document), 0u);
    EXPECT_EQ(document, nullptr);

    ASSERT_EQ(CreateCompoundDocumentOnMemory(&memory, 5, CompoundTypeStructured, &document), 0u);
    ASSERT_NE(document->GetRootFolder(), nullptr);
    EXPECT_EQ(GetFile(document->GetRootFolder(), L"a.bas"), "abc");
    CloseCompoundDocument(&document); // before its memory goes
}
