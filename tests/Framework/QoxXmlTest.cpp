#include "Platform/Files.h"
#include "tests/Support/TemporaryFolder.h"
#include "tests/Support/TestFiles.h"

#include <Vantrel/QoxXml.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace
{

using NodePtr = std::unique_ptr<QoxXMLNode>;
using ListPtr = std::unique_ptr<QoxXMLNodeList>;

class QoxXmlTest : public testing::Test
{
protected:
    NodePtr Load(QoxXMLDocument& document, const std::string& bytes)
    {
        WriteBytes(m_path, bytes);
        return NodePtr(document.LoadFromFile(m_path));
    }

    TemporaryFolder m_folder;
    std::wstring m_path = m_folder.File(L"file.xml");
};

} // namespace

TEST_F(QoxXmlTest, SavesADeclarationTwoBlanksOfIndentationAndAttributesInTheirOrder)
{
    QoxXMLDocument document;
    const NodePtr root(document.CreateNode(L"Lumeq"));
    document.AppendNode(root.get());
    EXPECT_TRUE(root->AddAttribute(L"Zebra", L"1"));
    EXPECT_TRUE(root->AddAttribute1("Ant", "2"));
    const NodePtr child(root->AppendNode(L"Rule", &document));
    child->SetNodeValue(L"text");
    ASSERT_TRUE(document.Save(m_path));
    EXPECT_EQ(ReadBytes(m_path), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                 "<Lumeq Zebra=\"1\" Ant=\"2\">\n"
                                 "  <Rule>text</Rule>\n"
                                 "</Lumeq>\n");
}

TEST_F(QoxXmlTest, MarkupIsTheSameForANodeThatWasMadeAndOneThatWasRead)
{
    QoxXMLDocument made;
    const NodePtr root(made.CreateNode(L"Lumeq"));
    made.AppendNode(root.get());
    const NodePtr rule(made.CreateNode(L"Rule"));
    rule->AddAttribute(L"Text", L"a<b>&\"'\t\n\r \u00e9\u65e5");
    const NodePtr inner(rule->AppendNode(L"Inner", &made));
    inner->SetNodeValue(L"line 1\nline 2\r\nline 3 <&>");
    root->AppendNode(rule.get());
    const std::wstring markup = rule->GetXML();
    ASSERT_TRUE(made.Save(m_path));

    QoxXMLDocument read;
    const NodePtr readRoot(read.LoadFromFile(m_path));
    ASSERT_NE(readRoot, nullptr);
    const NodePtr readRule(readRoot->SelectSingleNode(L"Rule"));
    ASSERT_NE(readRule, nullptr);
    EXPECT_EQ(readRule->GetXML(), markup);
    std::wstring text;
    EXPECT_TRUE(readRule->GetAttributeValue(L"Text", text));
    EXPECT_EQ(text, L"a<b>&\"'\t\n\r \u00e9\u65e5");
}

TEST_F(QoxXmlTest, MarkupDoesNotDependOnTheIndentationOfTheFile)
{
    QoxXMLDocument compact;
    QoxXMLDocument indented;
    const NodePtr compactRoot = Load(compact, "<L><R a=\"1\"><P/><Q>t</Q></R></L>");
    const std::wstring markup = compactRoot->GetXML();
    const NodePtr indentedRoot =
        Load(indented, "<L>\r\n\t<R a='1'>\r\n\t\t<P />\r\n\t\t<Q>t</Q>\r\n\t</R>\r\n</L>\r\n");
    EXPECT_EQ(indentedRoot->GetXML(), markup);
}

TEST_F(QoxXmlTest, AMissingAttributeLeavesTheOutArgumentUntouched)
{
    QoxXMLDocument document;
    const NodePtr root = Load(document, "<L a='x'/>");
    std::wstring text = L"before";
    char* bytes = nullptr;
    EXPECT_FALSE(root->GetAttributeValue(L"b", text));
    EXPECT_EQ(text, L"before");
    EXPECT_FALSE(root->GetAttributeValue1("b", bytes));
    EXPECT_EQ(bytes, nullptr);
    ASSERT_TRUE(root->GetAttributeValue1("a", bytes));
    const std::unique_ptr<char[]> owned(bytes);
    EXPECT_STREQ(bytes, "x");
}

TEST_F(QoxXmlTest, ANodeStaysUsableWhenItsDocumentAndItsListHaveGone)
{
    auto document = std::make_unique<QoxXMLDocument>();
    NodePtr root = Load(*document, "<L><R n='1'/><R n='2'/></L>");
    ListPtr list(root->GetNodeList1("R"));
    ASSERT_EQ(list->GetSize(), 2);
    const NodePtr second((*list)[1]);
    EXPECT_EQ((*list)[2], nullptr);
    EXPECT_EQ((*list)[-1], nullptr);
    list.reset();
    root.reset();
    document.reset();
    std::wstring number;
    EXPECT_TRUE(second->GetAttributeValue(L"n", number));
    EXPECT_EQ(number, L"2");
}

TEST_F(QoxXmlTest, AnAppendedNodeDoesNotDependOnTheObjectThatWasAppended)
{
    QoxXMLDocument document;
    const NodePtr root(document.CreateNode(L"L"));
    document.AppendNode(root.get());
    NodePtr child(document.CreateNode1("R"));
    root->AppendNode(child.get());
    child.reset();
    EXPECT_EQ(root->GetXML(), L"<L><R/></L>");
    EXPECT_EQ(root->GetNodeName(), L"L");
}

TEST_F(QoxXmlTest, ANodeOfAnotherDocumentIsCopied)
{
    QoxXMLDocument first;
    QoxXMLDocument second;
    const NodePtr root(first.CreateNode(L"L"));
    const NodePtr foreign(second.CreateNode(L"R"));
    foreign->AddAttribute(L"a", L"1");
    root->AppendNode(foreign.get());
    EXPECT_EQ(root->GetXML(), L"<L><R a=\"1\"/></L>");
    EXPECT_EQ(foreign->GetXML(), L"<R a=\"1\"/>");
}

TEST_F(QoxXmlTest, NoListIsGivenForANameThatNoChildHas)
{
    QoxXMLDocument document;
    const NodePtr root = Load(document, "<L><R/></L>");
    EXPECT_EQ(ListPtr(root->GetNodeList(L"S")), nullptr);
}

TEST_F(QoxXmlTest, APathFindsTheFirstMatchAndANonPathNothing)
{
    QoxXMLDocument document;
    const NodePtr root = Load(document, "<Settings><Units><Linear>feet</Linear></Units></Settings>");
    const NodePtr linear(root->SelectSingleNode(L"Units/Linear"));
    ASSERT_NE(linear, nullptr);
    std::wstring text;
    EXPECT_TRUE(linear->GetNodeValueInCString(text));
    EXPECT_EQ(text, L"feet");
    EXPECT_EQ(NodePtr(root->SelectSingleNode(L"Units/Angular")), nullptr);
    EXPECT_EQ(NodePtr(root->SelectSingleNode(L"[[")), nullptr);
    EXPECT_EQ(NodePtr(root->SelectSingleNode(L"")), nullptr);
}

TEST_F(QoxXmlTest, NamesThatNoElementMayHaveAreRefused)
{
    QoxXMLDocument document;
    EXPECT_EQ(NodePtr(document.CreateNode(L"")), nullptr);
    EXPECT_EQ(NodePtr(document.CreateNode(L"a b")), nullptr);
    EXPECT_EQ(NodePtr(document.CreateNode1("<")), nullptr);
    const NodePtr root(document.CreateNode(L"L"));
    EXPECT_FALSE(root->AddAttribute(L"1a", L""));
}

TEST_F(QoxXmlTest, ControlCharactersThatXmlForbidsBecomeBlanks)
{
    QoxXMLDocument document;
    const NodePtr root(document.CreateNode(L"L"));
    root->AddAttribute(L"a", L"x\x01y");
    EXPECT_EQ(root->GetXML(), L"<L a=\"x y\"/>");
}

TEST_F(QoxXmlTest, FilesThatAreNoXmlGiveNoRoot)
{
    for (const std::string& bytes :
         { std::string(), std::string("plain text"), std::string("<L>"), std::string("<L></M>"),
           std::string("<?xml version='1.0'?>"), std::string("\0\0\0\0", 4) })
    {
        QoxXMLDocument document;
        EXPECT_EQ(Load(document, bytes), nullptr) << bytes;
    }
    QoxXMLDocument document;
    EXPECT_EQ(NodePtr(document.LoadFromFile(m_folder.Path())), nullptr) << "a folder";
    EXPECT_EQ(NodePtr(document.LoadFromFile(m_folder.File(L"missing.xml"))), nullptr);
    EXPECT_EQ(NodePtr(document.LoadFromFile1(nullptr)), nullptr);
}

TEST_F(QoxXmlTest, AFileInAnEncodingThatIsNotReadGivesNoRoot)
{
    for (const std::string& bytes :
         { std::string("<?xml version='1.0' encoding='windows-1252'?><L a='\x80'/>"),
           std::string("<?xml version='1.0' encoding='Shift_JIS'?><L a='\x93\xfa'/>"), std::string("<L a='\xe8'/>"),
           std::string("<?xml version='1.0' encoding='windows-1252'><L a='iso-8859-1 \xe8'/>") })
    {
        QoxXMLDocument document;
        EXPECT_EQ(Load(document, bytes), nullptr) << bytes;
    }
}

TEST_F(QoxXmlTest, EveryEncodingThatIsReadGivesTheSameText)
{
    const auto wide = [](const std::u16string& text)
    { return std::string(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t)); };
    for (const std::string& bytes : { std::string("<L a='\xc3\xa8'/>"), std::string("\xef\xbb\xbf<L a='\xc3\xa8'/>"),
                                      std::string("<?xml version='1.0' encoding='UTF-8'?><L a='\xc3\xa8'/>"),
                                      std::string("<?xml version='1.0' encoding='windows-1252'?><L a='&#xe8;'/>"),
                                      std::string("<?xml version='1.0' encoding='ISO-8859-1'?><L a='\xe8'/>"),
                                      std::string("<?xml version='1.0' encoding='latin1'?><L a='\xe8'/>"),
                                      wide(u"\uFEFF<L a='\u00e8'/>"), wide(u"<?xml version='1.0'?><L a='\u00e8'/>") })
    {
        QoxXMLDocument document;
        const NodePtr root = Load(document, bytes);
        ASSERT_NE(root, nullptr) << bytes;
        std::wstring value;
        EXPECT_TRUE(root->GetAttributeValue(L"a", value));
        EXPECT_EQ(value, L"\u00e8") << bytes;
    }
}

TEST_F(QoxXmlTest, EntityDefinitionsAreNotExpanded)
{
    QoxXMLDocument document;
    const NodePtr root = Load(document, "<!DOCTYPE L [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;&a;&a;&a;\">"
                                        "<!ENTITY c \"&b;&b;&b;&b;&b;&b;&b;&b;\">]><L><R t='&c;'>&c;</R></L>");
    ASSERT_NE(root, nullptr);
    EXPECT_LT(root->GetXML().size(), 100u);
}

TEST_F(QoxXmlTest, DeepNestingIsReadAndWritten)
{
    std::string bytes;
    for (int level = 0; level < 10000; ++level)
    {
        bytes += "<a>";
    }
    for (int level = 0; level < 10000; ++level)
    {
        bytes += "</a>";
    }
    QoxXMLDocument document;
    const NodePtr root = Load(document, bytes);
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(root->GetXML().substr(0, 9), L"<a><a><a>");
    EXPECT_TRUE(document.Save(m_path));
}

TEST_F(QoxXmlTest, AFileThatCannotBeWrittenGivesFalse)
{
    QoxXMLDocument document;
    const NodePtr root(document.CreateNode(L"L"));
    document.AppendNode(root.get());
    EXPECT_FALSE(document.Save(m_folder.File(L"missing") + Platform::PathSeparator + L"file.xml"));
    EXPECT_FALSE(document.Save1(nullptr));
}
