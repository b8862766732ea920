#pragma once

#include <string>

/// Keeps the log told which document the user works on.
class CurrentRuleFile
{
public:
    /// A document window with this text has become the active one. Logs it if the one before
    /// had another text.
    void OnActivated(const std::wstring& TempStr);

private:
    std::wstring m_text;
};
