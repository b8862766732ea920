#include <Vantrel/VantrelLog.h>

#include "Platform/Files.h"
#include "Platform/Text.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <memory>
#include <string>

namespace
{

/// The open log, or none. The log is one for the program and all its modules.
std::unique_ptr<std::ofstream> logFile;

std::string LocalTimeText()
{
    const auto now = std::chrono::system_clock::now();
    const auto milliseconds =
        std::chrono::duration_cast<std::chrono::milliseconds>(now.time_since_epoch()).count() % 1000;
    const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
    const std::tm local = *std::localtime(&seconds);
    std::array<char, 64> text;
    const int length = std::snprintf(text.data(), text.size(), "%04d-%02d-%02d %02d:%02d:%02d.%03d",
                                     local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min,
                                     local.tm_sec, static_cast<int>(milliseconds));
    return { text.data(), static_cast<std::size_t>(std::max(length, 0)) };
}

} // namespace

void CVantrelLog::OpenLogFile(std::wstring path)
{
    auto file = std::make_unique<std::ofstream>(Platform::NativePath(path), std::ios::binary | std::ios::app);
    logFile = file->is_open() ? std::move(file) : nullptr;
}

void CVantrelLog::CloseLogFile()
{
    logFile.reset();
}

void CVantrelLog::PrintMessage(const std::wstring& text, const char* sourceFile, int line)
{
    if (logFile == nullptr)
    {
        return;
    }
    std::string entry = LocalTimeText();
    entry += '\t';
    entry += sourceFile != nullptr ? sourceFile : "";
    entry += '(';
    entry += std::to_string(line);
    entry += ")\t";
    const std::size_t textStart = entry.size();
    entry += Platform::WideToUtf8(text);
    // One line an entry, whatever a file name or rule name brings along.
    std::replace_if(
        entry.begin() + static_cast<std::ptrdiff_t>(textStart), entry.end(),
        [](char c) { return static_cast<unsigned char>(c) < 0x20; }, ' ');
    entry += '\n';
    *logFile << entry << std::flush;
}
