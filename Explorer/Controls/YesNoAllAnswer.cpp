#include "Explorer/Controls/YesNoAllAnswer.h"

bool YesNoAllLoop::Allows(const std::function<YesNoAllAnswer()>& ask)
{
    if (m_forAll)
    {
        return *m_forAll;
    }
    const YesNoAllAnswer answer = ask();
    const bool allowed = answer == YesNoAllAnswer::Yes || answer == YesNoAllAnswer::YesToAll;
    if (answer == YesNoAllAnswer::YesToAll || answer == YesNoAllAnswer::NoToAll)
    {
        m_forAll = allowed;
    }
    return allowed;
}
