#include "Document/TreeRootRule.h"
#include "tests/Document/TestApplication.h"

#include <gtest/gtest.h>

TEST(TreeRootRuleTest, IsARootWithItsFixedMembers)
{
    const CQOXRMTreeRootRule root;
    EXPECT_TRUE(root.m_bIsRoot);
    EXPECT_EQ(root.m_nCriticality, 5);
    EXPECT_EQ(root.m_nReserved, 0);
    EXPECT_EQ(root.m_nTreeIndex, 0);
    ASSERT_EQ(root.m_references.size(), 1u);
    EXPECT_TRUE(root.m_references[0].empty());
    EXPECT_TRUE(root.m_strRuleName.empty());
}

TEST(TreeRootRuleTest, NeverAppearsInAFileAndTakesNoValues)
{
    CQOXRMTreeRootRule root;
    EXPECT_EQ(root.GetXML(), nullptr);
    root.PopulateParametersFromXML(nullptr);
    root.RunRule();
    root.UpdateRule(nullptr, nullptr);
    EXPECT_TRUE(root.UpdateRule(&root));
    const CQoxData* data = nullptr;
    QOXResultSet* results = nullptr;
    EXPECT_EQ(root.Execute(nullptr, data, results), 0);
}

TEST(TreeRootRuleTest, EditingShowsItsOneBox)
{
    RecordingPrompt prompt;
    CQOXRMTreeRootRule root(&prompt);
    root.EditRule();
    EXPECT_EQ(prompt.texts, std::vector<std::wstring>{ L"Yet to be implememted." });
    CQOXRMTreeRootRule().EditRule();
}
