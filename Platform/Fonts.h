#pragma once

/// The system's fonts.
namespace Platform
{

/// Begins to look for the system's fonts, where the toolkit would begin when it measures the
/// first text and wait for it. Called at the start, when the environment is complete: a thread
/// reads it.
void PrepareFonts();

} // namespace Platform
