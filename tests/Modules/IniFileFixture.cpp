#include "tests/Modules/IniFileFixture.h"

#include "Platform/Files.h"
#include "tests/Support/TestFiles.h"

std::string WithLineFeeds(std::string text)
{
    const std::string_view lineEnd = Platform::TextLineEnd;
    for (std::size_t at = text.find(lineEnd); at != std::string::npos; at = text.find(lineEnd, at + 1))
    {
        text.replace(at, lineEnd.size(), "\n");
    }
    return text;
}

std::vector<std::string> Described(const CIniFile::Records& records)
{
    std::vector<std::string> lines;
    for (const CIniFile::Record& record : records)
    {
        std::string& line = lines.emplace_back("[" + record.Section + "] " + record.Key + "=" + record.Value);
        line += record.Commented == ' ' ? std::string() : std::string(" out ") + record.Commented;
        line += record.Comments.empty() ? std::string() : " under " + record.Comments;
    }
    return lines;
}

void IniFileFixture::Write(std::string_view bytes) const
{
    WriteBytes(m_path, bytes);
}

std::string IniFileFixture::Bytes() const
{
    return ReadBytes(m_path);
}

CIniFile::Records IniFileFixture::Loaded() const
{
    CIniFile::Records records;
    EXPECT_TRUE(m_file.Load(m_name, records));
    return records;
}

bool IniFileFixture::LoadAndSave() const
{
    CIniFile::Records records;
    return m_file.Load(m_name, records) && m_file.Save(m_name, records);
}
