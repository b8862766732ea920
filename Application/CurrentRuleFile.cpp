#include "Application/CurrentRuleFile.h"

#include "Utilities/QOXUIUtils.h"

void CurrentRuleFile::OnActivated(const std::wstring& TempStr)
{
    if (TempStr == m_text)
    {
        return; // the window comes back from a box or from another program
    }
    m_text = TempStr;
    LogMessage(L"Current Rule File is %s", m_text);
}
