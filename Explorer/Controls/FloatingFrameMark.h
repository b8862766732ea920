#pragma once

/// Sees to it that the frame around a floating tool bar loses its close box once, and again
/// after the bar was docked.
class FloatingFrameMark
{
public:
    /// Called whenever the bar was moved. True if the frame's close box is to go now.
    bool OnMoved(bool isFloating, bool isInMiniFrame);

private:
    bool m_done = false;
};
