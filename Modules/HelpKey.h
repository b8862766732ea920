#pragma once

#include "Help/HelpTopics.h"

class wxWindow;

/// From now on the key F1 in a dialog, and its Help button if it has one, shows the topic.
/// Called once by each dialog when it is made.
void ShowHelpOnF1(wxWindow& dialog, HelpTopic topic);
