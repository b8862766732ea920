#pragma once

/// Gives the window toolkit's own questions, titles and menu items in the language in use.
/// Called once, after the language is loaded and before the first window.
void TranslateToolkit();
