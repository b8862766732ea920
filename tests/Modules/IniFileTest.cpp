#include "Modules/IniFile.h"

#include "Platform/Files.h"
#include "tests/Modules/IniFileFixture.h"

#include <gmock/gmock.h>

#include <type_traits>

using testing::ElementsAre;
using testing::IsEmpty;

static_assert(std::has_virtual_destructor_v<CIniFile>);
static_assert(sizeof(CIniFile) == sizeof(void*), "an object holds no data but its table of virtual operations");

namespace
{

class IniFileTest : public IniFileFixture
{
};

} // namespace

TEST_F(IniFileTest, AnEmptyFileLoadsAsAnEmptyListWithSuccess)
{
    Write("");
    CIniFile::Records records(3);
    EXPECT_TRUE(m_file.Load(m_name, records));
    EXPECT_THAT(records, IsEmpty());
    EXPECT_FALSE(m_file.SectionExists("A", m_name));
    EXPECT_EQ(m_file.GetValue("k", "A", m_name), "");
}

TEST_F(IniFileTest, FileExistsOnlyForAFileThatCanBeOpened)
{
    EXPECT_FALSE(m_file.FileExists(m_name));
    EXPECT_FALSE(m_file.FileExists(""));
    EXPECT_FALSE(m_file.FileExists(Platform::ToCodePage(m_folder.Path())));
    Write("");
    EXPECT_TRUE(m_file.FileExists(m_name));
}

TEST_F(IniFileTest, CreateMakesAnEmptyFile)
{
    EXPECT_TRUE(m_file.Create(m_name));
    EXPECT_EQ(Bytes(), "");
}

TEST_F(IniFileTest, CreateEmptiesAnExistingFile)
{
    Write("[A]\nk=v\n");
    EXPECT_TRUE(m_file.Create(m_name));
    EXPECT_EQ(Bytes(), "");
}

TEST_F(IniFileTest, CreateFailsWhereNoFileCanBeMade)
{
    EXPECT_FALSE(m_file.Create(Platform::ToCodePage(m_folder.File(L"missing") + Platform::PathSeparator + L"x.ini")));
    EXPECT_FALSE(m_file.Create(Platform::ToCodePage(m_folder.Path())));
    EXPECT_FALSE(m_file.Create(""));
}

TEST_F(IniFileTest, ALastLineWithoutALineEndIsLostForGoodAtTheNextSave)
{
    Write("[A]\nk=v\nlast=gone");
    EXPECT_THAT(Described(Loaded()), ElementsAre("[A] =", "[A] k=v"));
    EXPECT_FALSE(m_file.RecordExists("last", "A", m_name));
    EXPECT_TRUE(m_file.SetValue("k", "w", "A", m_name));
    EXPECT_EQ(Saved(), " [A]\n k=w\n");
}

TEST_F(IniFileTest, ACommentedOutKeyIsFoundAndWrittenBackWithItsCharacterAndNoBlank)
{
    Write("[A]\n;key=value\n# other = b\n");
    EXPECT_TRUE(m_file.RecordExists("key", "A", m_name));
    EXPECT_EQ(m_file.GetValue("key", "A", m_name), "value");
    EXPECT_THAT(Described(Loaded()), ElementsAre("[A] =", "[A] key=value out ;", "[A] other = b out #"));
    EXPECT_TRUE(LoadAndSave());
    EXPECT_EQ(Saved(), " [A]\n;key=value\n#other = b\n");
}

TEST_F(IniFileTest, ACommentedOutHeaderIsAHeader)
{
    Write("k=v\n#  [A]\nx=y\n");
    EXPECT_THAT(Described(Loaded()), ElementsAre("[] k=v", "[A] = out #", "[A] x=y"));
    EXPECT_TRUE(LoadAndSave());
    EXPECT_EQ(Saved(), " k=v\n#[A]\n x=y\n");
}

TEST_F(IniFileTest, PlainCommentsAheadOfAHeaderAreWrittenBackAboveItUnchanged)
{
    Write("  # first\n; second  \n\n[A]\n#third\nk=v\n");
    EXPECT_THAT(Described(Loaded()), ElementsAre("[A] = under # first\n; second\n", "[A] k=v under #third\n"));
    EXPECT_TRUE(LoadAndSave());
    EXPECT_EQ(Saved(), "# first\n; second\n [A]\n#third\n k=v\n");
}

TEST_F(IniFileTest, CommentsAtTheEndOfTheFileAreLostAtTheNextSave)
{
    Write("[A]\n# nothing behind it\n");
    EXPECT_TRUE(LoadAndSave());
    EXPECT_EQ(Saved(), " [A]\n");
}

TEST_F(IniFileTest, SectionsAndKeysThatDifferOnlyInCaseAreDifferent)
{
    Write("[foo]\nkey=1\nKey=2\n[Foo]\nkey=3\n");
    EXPECT_EQ(m_file.GetValue("key", "foo", m_name), "1");
    EXPECT_EQ(m_file.GetValue("Key", "foo", m_name), "2");
    EXPECT_EQ(m_file.GetValue("key", "Foo", m_name), "3");
    EXPECT_FALSE(m_file.RecordExists("KEY", "foo", m_name));
    EXPECT_FALSE(m_file.SectionExists("FOO", m_name));
    EXPECT_THAT(m_file.GetSectionNames(m_name), ElementsAre("foo", "Foo"));
}

TEST_F(IniFileTest, AHeaderWithAnEqualsSignIsAKeyOfTheSectionThatItOpens)
{
    Write("# lost\n[a=b]\nk=v\n");
    EXPECT_THAT(Described(Loaded()), ElementsAre("[a=b] a=b", "[a=b] k=v"));
    EXPECT_THAT(m_file.GetSections(m_name), IsEmpty());
    EXPECT_TRUE(m_file.SectionExists("a=b", m_name));
}

TEST_F(IniFileTest, AKeyWithABracketInItsValueIsTakenForASectionLine)
{
    Write("[A]\na=[b]\nk=v\n");
    EXPECT_THAT(Described(Loaded()), ElementsAre("[A] =", "[=[b] =[b", "[=[b] k=v"));
}

TEST_F(IniFileTest, WithTwoLinesOfOneKeyTheFirstOneCounts)
{
    const std::string_view twice = "[A]\nk=1\nk=2\n";
    Write(twice);
    EXPECT_EQ(m_file.GetValue("k", "A", m_name), "1");
    EXPECT_THAT(Described(m_file.GetRecord("k", "A", m_name)), ElementsAre("[A] k=1"));
    EXPECT_TRUE(m_file.SetValue("k", "3", "A", m_name));
    EXPECT_EQ(Saved(), " [A]\n k=3\n k=2\n");
    EXPECT_TRUE(m_file.DeleteRecord("k", "A", m_name));
    EXPECT_EQ(Saved(), " [A]\n k=2\n");
}

TEST_F(IniFileTest, AValueKeepsEverythingBehindItsFirstEqualsSign)
{
    Write("[A]\nk=a=b==\n=x\n");
    EXPECT_EQ(m_file.GetValue("k", "A", m_name), "a=b==");
    EXPECT_EQ(m_file.GetValue("", "A", m_name), "") << "the header comes first";
    EXPECT_THAT(Described(Loaded()), ElementsAre("[A] =", "[A] k=a=b==", "[A] =x"));
}

TEST_F(IniFileTest, BlanksAtTheEndsOfALineGoAndThoseAroundTheEqualsSignStay)
{
    Write("\t [A] \r\n \ta = b \t\r\n");
    EXPECT_THAT(Described(Loaded()), ElementsAre("[A] =", "[A] a = b"));
    EXPECT_TRUE(m_file.RecordExists("a ", "A", m_name));
    EXPECT_FALSE(m_file.RecordExists("a", "A", m_name));
    EXPECT_EQ(m_file.GetValue("a ", "A", m_name), " b");
}

TEST_F(IniFileTest, BlanksInsideTheBracketsStayAndTextBehindThemGoes)
{
    Write("[ A ] behind\n[a[b]c]\n");
    EXPECT_THAT(m_file.GetSectionNames(m_name), ElementsAre(" A ", "a[b"));
}

TEST_F(IniFileTest, ALineWithoutDataIsStoredEmptyUnlessCommentsWait)
{
    Write("[A]\njunk\nk=v\n");
    EXPECT_THAT(Described(Loaded()), ElementsAre("[A] =", "[] =", "[A] k=v"));
    EXPECT_TRUE(LoadAndSave());
    EXPECT_EQ(Saved(), " [A]\n k=v\n []\n");

    Write("[A]\n# waits\njunk\nk=v\n");
    EXPECT_THAT(Described(Loaded()), ElementsAre("[A] =", "[A] k=v under # waits\n"));
}

TEST_F(IniFileTest, SaveBringsTheRecordsOfASectionTogetherInThePlaceOfItsFirst)
{
    Write("top=1\n[B]\nb=1\n[A]\na=1\n[B]\nb=2\n[]\ntop=2\n");
    CIniFile::Records records = Loaded();
    EXPECT_TRUE(m_file.Save(m_name, records));
    EXPECT_THAT(Described(records), ElementsAre("[] top=1", "[] =", "[] top=2", "[B] =", "[B] b=1", "[B] =", "[B] b=2",
                                                "[A] =", "[A] a=1"));
    EXPECT_EQ(Saved(), " top=1\n []\n top=2\n [B]\n b=1\n [B]\n b=2\n [A]\n a=1\n");
}

TEST_F(IniFileTest, SaveEndsLinesAsTheSystemDoesAlsoInsideComments)
{
    const std::string lineEnd = Platform::TextLineEnd;
    Write("# c\n[A]\n");
    EXPECT_TRUE(LoadAndSave());
    EXPECT_EQ(Bytes(), "# c" + lineEnd + " [A]" + lineEnd);
}

TEST_F(IniFileTest, AFailedSaveLeavesTheContentAlone)
{
    Write("[A]\n[B]\nb=1\n[A]\na=1\n");
    CIniFile::Records records = Loaded();
    const CIniFile::Records before = records;
    EXPECT_FALSE(m_file.Save(Platform::ToCodePage(m_folder.Path()), records));
    EXPECT_EQ(records, before);
}

TEST_F(IniFileTest, AddSectionOfANameThatIsThereGivesTwoHeadersSideBySideInOneGroup)
{
    Write("[A]\na=1\n[B]\n");
    EXPECT_TRUE(m_file.AddSection("A", m_name));
    EXPECT_EQ(Saved(), " [A]\n a=1\n [A]\n [B]\n");
    EXPECT_EQ(m_file.GetValue("a", "A", m_name), "1");
}

TEST_F(IniFileTest, AddRecordComesLastInItsSectionAlsoIfTheKeyIsThere)
{
    Write("[A]\na=1\n[B]\n");
    EXPECT_TRUE(m_file.AddRecord("a", "2", "A", m_name));
    EXPECT_TRUE(m_file.AddRecord("c", "3", "C", m_name));
    EXPECT_EQ(Saved(), " [A]\n a=1\n a=2\n [B]\n c=3\n");
}

TEST_F(IniFileTest, AKeyThatIsAddedWithoutAHeaderJoinsTheSectionAboveItInTheFile)
{
    Write("");
    EXPECT_TRUE(m_file.AddRecord("c", "3", "C", m_name));
    EXPECT_FALSE(m_file.SectionExists("C", m_name));
    EXPECT_EQ(m_file.GetValue("c", "", m_name), "3");
}

TEST_F(IniFileTest, SetValueOfAnUnknownSectionAppendsItsHeaderAndTheKey)
{
    Write("[A]\n");
    EXPECT_TRUE(m_file.SetValue("k", "v", "B", m_name));
    EXPECT_EQ(Saved(), " [A]\n [B]\n k=v\n");
}

TEST_F(IniFileTest, SetValueOfAKnownKeyKeepsItsCommentsAndItsCommenting)
{
    Write("[A]\n# why\n;k=1\n");
    EXPECT_TRUE(m_file.SetValue("k", "2", "A", m_name));
    EXPECT_EQ(Saved(), " [A]\n# why\n;k=2\n");
}

TEST_F(IniFileTest, SetValueOfANewKeyPutsItBehindTheFirstRecordOfTheSection)
{
    Write("[A]\na=1\n[B]\nb=1\n");
    EXPECT_TRUE(m_file.SetValue("new", "2", "A", m_name));
    EXPECT_EQ(Saved(), " [A]\n new=2\n a=1\n [B]\n b=1\n");

    Write("x=1\ny=2\n[A]\n");
    EXPECT_TRUE(m_file.SetValue("new", "3", "", m_name));
    EXPECT_EQ(Saved(), " x=1\n new=3\n y=2\n [A]\n") << "the first record need not be a header";
}

TEST_F(IniFileTest, GetSectionRecordsGivesTheKeysInTheOrderOfTheFile)
{
    Write("[A]\nz=1\n[B]\nb=1\n[A]\n;a=2\n");
    EXPECT_THAT(Described(m_file.GetSectionRecords("A", m_name)), ElementsAre("[A] z=1", "[A] a=2 out ;"));
    EXPECT_THAT(m_file.GetSectionRecords("C", m_name), IsEmpty());
}

TEST_F(IniFileTest, DeleteRecordOfAnUnknownKeyFailsAndDoesNotSave)
{
    Write("[A]\nk=v\nlast=kept");
    EXPECT_FALSE(m_file.DeleteRecord("x", "A", m_name));
    EXPECT_FALSE(m_file.DeleteRecord("k", "B", m_name));
    EXPECT_EQ(Bytes(), "[A]\nk=v\nlast=kept");
}

TEST_F(IniFileTest, DeleteSectionRemovesAllOfItWithItsHeaders)
{
    Write("[A]\na=1\n[B]\nb=1\n[A]\na=2\n");
    EXPECT_TRUE(m_file.DeleteSection("A", m_name));
    EXPECT_EQ(Saved(), " [B]\n b=1\n");
    EXPECT_TRUE(m_file.DeleteSection("A", m_name)) << "nothing to remove is no failure";
    EXPECT_EQ(Saved(), " [B]\n b=1\n");
}

TEST_F(IniFileTest, DeletingAndAddingASectionMovesItToTheEndOfTheFile)
{
    Write("[A]\na=1\n[B]\nb=1\n");
    EXPECT_TRUE(m_file.DeleteSection("A", m_name));
    EXPECT_TRUE(m_file.AddSection("A", m_name));
    EXPECT_TRUE(m_file.AddRecord("a", "2", "A", m_name));
    EXPECT_EQ(Saved(), " [B]\n b=1\n [A]\n a=2\n");
}

TEST_F(IniFileTest, CommentRecordAndUnCommentRecordChangeTheFirstMatch)
{
    Write("[A]\nk=1\nk=2\n");
    EXPECT_TRUE(m_file.CommentRecord('#', "k", "A", m_name));
    EXPECT_EQ(Saved(), " [A]\n#k=1\n k=2\n");
    EXPECT_TRUE(m_file.UnCommentRecord("k", "A", m_name));
    EXPECT_EQ(Saved(), " [A]\n k=1\n k=2\n");
    EXPECT_FALSE(m_file.CommentRecord('#', "x", "A", m_name));
    EXPECT_FALSE(m_file.UnCommentRecord("x", "A", m_name));
}

TEST_F(IniFileTest, CommentSectionAndUnCommentSectionChangeEveryRecordOfIt)
{
    Write("[A]\nk=1\n[B]\nk=2\n");
    EXPECT_TRUE(m_file.CommentSection(';', "A", m_name));
    EXPECT_EQ(Saved(), ";[A]\n;k=1\n [B]\n k=2\n");
    EXPECT_TRUE(m_file.UnCommentSection("A", m_name));
    EXPECT_EQ(Saved(), " [A]\n k=1\n [B]\n k=2\n");
}

TEST_F(IniFileTest, SetRecordCommentsAddsALineFeedEvenBehindOne)
{
    Write("[A]\n# old\nk=1\n");
    EXPECT_TRUE(m_file.SetRecordComments("# new", "k", "A", m_name));
    EXPECT_EQ(Saved(), " [A]\n# new\n k=1\n");
    EXPECT_TRUE(m_file.SetRecordComments("# new\n", "k", "A", m_name));
    EXPECT_EQ(Saved(), " [A]\n# new\n\n k=1\n");
    EXPECT_FALSE(m_file.SetRecordComments("# new", "x", "A", m_name));
}

TEST_F(IniFileTest, SetRecordCommentsStoresATextBelowTwoCharactersAsItStands)
{
    Write("[A]\nk=1\n");
    EXPECT_TRUE(m_file.SetRecordComments("#", "k", "A", m_name));
    EXPECT_EQ(Saved(), " [A]\n# k=1\n");
    Write("[A]\n# old\nk=1\n");
    EXPECT_TRUE(m_file.SetRecordComments("", "k", "A", m_name));
    EXPECT_EQ(Saved(), " [A]\n k=1\n");
}

TEST_F(IniFileTest, SetSectionCommentsReplacesThoseOfTheHeader)
{
    Write("# old\n[A]\n# key\nk=1\n");
    EXPECT_TRUE(m_file.SetSectionComments("# new", "A", m_name));
    EXPECT_EQ(Saved(), "# new\n [A]\n# key\n k=1\n");
    EXPECT_FALSE(m_file.SetSectionComments("# new", "B", m_name));
}

TEST_F(IniFileTest, RenameSectionRenamesEveryRecordOfIt)
{
    Write("[A]\na=1\n[B]\nb=1\n[A]\n");
    EXPECT_TRUE(m_file.RenameSection("A", "B", m_name));
    EXPECT_EQ(Saved(), " [B]\n a=1\n [B]\n b=1\n [B]\n");
}

TEST_F(IniFileTest, GetSectionsGivesTheHeadersInTheOrderOfTheFile)
{
    Write("x=1\n# c\n[B]\nb=1\n;[A]\n[B]\n");
    EXPECT_THAT(Described(m_file.GetSections(m_name)), ElementsAre("[B] = under # c\n", "[A] = out ;", "[B] ="));
    EXPECT_THAT(m_file.GetSectionNames(m_name), ElementsAre("B", "A", "B"));
}

TEST_F(IniFileTest, SortSortsSectionsByNameAndKeysWithinThem)
{
    Write("# b\n[B]\ny=1\n# x\nx=2\n[A]\nk=1\nK=2\n");
    EXPECT_TRUE(m_file.Sort(m_name, false));
    EXPECT_EQ(Saved(), " [A]\n K=2\n k=1\n# b\n [B]\n# x\n x=2\n y=1\n");
    EXPECT_TRUE(m_file.Sort(m_name, true));
    EXPECT_EQ(Saved(), "# b\n [B]\n y=1\n# x\n x=2\n [A]\n k=1\n K=2\n");
}

TEST_F(IniFileTest, SortComparesBytesWithoutSign)
{
    Write("[\xC4]\n[z]\n");
    EXPECT_TRUE(m_file.Sort(m_name, false));
    EXPECT_EQ(Saved(), " [z]\n [\xC4]\n");
}

TEST_F(IniFileTest, SortWithoutAHeaderFailsAndLeavesTheFile)
{
    Write("b=1\na=2\n");
    EXPECT_FALSE(m_file.Sort(m_name, false));
    EXPECT_EQ(Bytes(), "b=1\na=2\n");
}

TEST_F(IniFileTest, SortDropsKeysWithoutAHeaderAndRepeatsThoseOfARepeatedHeader)
{
    Write("lost=1\n[A]\nk=1\n[A]\n");
    EXPECT_TRUE(m_file.Sort(m_name, false));
    EXPECT_EQ(Saved(), " [A]\n k=1\n [A]\n k=1\n");
}

TEST_F(IniFileTest, ContentIsTheTextWithoutTheBlanksAndWithoutGrouping)
{
    const std::string text = "# c\n[A]\n;a=1\n[B]\nb=1\n[A]\na=2\n";
    Write(text);
    EXPECT_EQ(m_file.Content(m_name), text);
    EXPECT_EQ(Bytes(), text) << "asking for the content writes nothing";
}

TEST_F(IniFileTest, OneObjectServesAnyNumberOfFilesAndKeepsNothing)
{
    const std::string other = Platform::ToCodePage(m_folder.File(L"other.ini"));
    Write("[A]\nk=1\n");
    EXPECT_TRUE(m_file.Create(other));
    EXPECT_TRUE(m_file.SetValue("k", "2", "A", other));
    EXPECT_EQ(m_file.GetValue("k", "A", m_name), "1");
    Write("[A]\nk=3\n");
    EXPECT_EQ(m_file.GetValue("k", "A", m_name), "3");
}
