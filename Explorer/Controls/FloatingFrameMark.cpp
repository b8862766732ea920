#include "Explorer/Controls/FloatingFrameMark.h"

bool FloatingFrameMark::OnMoved(bool isFloating, bool isInMiniFrame)
{
    if (!isFloating)
    {
        m_done = false;
        return false;
    }
    if (m_done || !isInMiniFrame)
    {
        return false;
    }
    m_done = true;
    return true;
}
