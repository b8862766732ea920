#pragma once

#include "Document/Lumeq.h"
#include "tests/Document/TestApplication.h"

#include <Vantrel/ConcreteQOXRule.h>

#include <gtest/gtest.h>

#include <deque>
#include <memory>
#include <string>

/// A record with user-defined rules, and a place for its file.
class RecordTest : public testing::Test
{
protected:
    /// Puts a new rule of that name at the end of the record.
    ConcreteQOXRule& Add(const std::wstring& name);

    std::unique_ptr<TestApplication> application = std::make_unique<TestApplication>();
    TemporaryFolder folder;
    std::wstring path = folder.File(L"rules.vrf");
    CQOXRMLumeq record;

private:
    std::deque<ConcreteQOXRule> m_rules; // the record doesn't own them
};
