#include "Modules/IniFileText.h"

#include "Platform/Files.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>
#include <utility>
#include <vector>

namespace
{

constexpr char LiveLine = ' ';

// Every record holds the name of its section, so a small file with one very long name and
// many keys would fill the memory. No file that lists modules and editors comes near this.
constexpr std::size_t MostSectionText = std::size_t(64) << 20;

std::string_view Trim(std::string_view text)
{
    constexpr std::string_view Blanks = " \t\n\r";
    const std::size_t first = text.find_first_not_of(Blanks);
    if (first == std::string_view::npos)
    {
        return {};
    }
    return text.substr(first, text.find_last_not_of(Blanks) - first + 1);
}

bool Holds(std::string_view text, char character)
{
    return text.find(character) != std::string_view::npos;
}

/// Turns lines into records, one after the other.
class LineReader
{
public:
    /// False if the line is a section line without its `]`, or if the records would take
    /// far more memory than the text.
    bool Take(std::string_view line)
    {
        std::string_view text = Trim(line);
        if (text.empty())
        {
            return true;
        }
        CIniFile::Record record;
        if (text.front() == '#' || text.front() == ';')
        {
            if (!Holds(text, '[') && !Holds(text, '='))
            {
                m_comments.append(text).append("\n");
            }
            else
            {
                record.Commented = text.front();
                text = Trim(text.substr(1));
            }
        }
        // Looked for in the whole line: a value with a bracket makes a section line too,
        // and files in the field are read so.
        if (Holds(text, '['))
        {
            text.remove_prefix(1);
            const std::size_t end = text.find(']');
            if (end == std::string_view::npos)
            {
                return false;
            }
            text = text.substr(0, end);
            record.Comments = std::exchange(m_comments, {});
            record.Section = text;
            m_currentSection = text;
        }
        if (const std::size_t equals = text.find('='); equals != std::string_view::npos)
        {
            record.Comments = std::exchange(m_comments, {});
            record.Section = m_currentSection;
            record.Key = text.substr(0, equals);
            record.Value = text.substr(equals + 1);
        }
        // While comments wait, a line without data is not stored.
        if (m_comments.empty())
        {
            m_sectionText += record.Section.size();
            if (m_sectionText > MostSectionText)
            {
                return false;
            }
            m_records.push_back(std::move(record));
        }
        return true;
    }

    CIniFile::Records TakeRecords() { return std::move(m_records); }

private:
    CIniFile::Records m_records;
    std::string m_comments;
    std::string m_currentSection;
    std::size_t m_sectionText = 0; // characters of section names in all records
};

void AppendLine(std::string& text, const CIniFile::Record& record)
{
    if (record.Key.empty())
    {
        text.append("[").append(record.Section).append("]");
    }
    else
    {
        text.append(record.Key).append("=").append(record.Value);
    }
}

} // namespace

std::optional<CIniFile::Records> IniFileText::Parse(std::string_view text)
{
    LineReader reader;
    for (std::size_t end = text.find('\n'); end != std::string_view::npos; end = text.find('\n'))
    {
        if (!reader.Take(text.substr(0, end)))
        {
            return std::nullopt;
        }
        text.remove_prefix(end + 1);
    }
    return reader.TakeRecords();
}

void IniFileText::GroupBySection(CIniFile::Records& records)
{
    std::unordered_map<std::string, std::size_t> groupOfSection;
    std::vector<CIniFile::Records> groups;
    for (CIniFile::Record& record : records)
    {
        const auto [group, isNew] = groupOfSection.try_emplace(record.Section, groups.size());
        if (isNew)
        {
            groups.emplace_back();
        }
        groups[group->second].push_back(std::move(record));
    }
    records.clear();
    for (CIniFile::Records& group : groups)
    {
        std::move(group.begin(), group.end(), std::back_inserter(records));
    }
}

std::string IniFileText::FileText(const CIniFile::Records& records)
{
    std::string lines;
    for (const CIniFile::Record& record : records)
    {
        lines += record.Comments;
        // Written for live lines too: the blank is part of the format.
        lines += record.Commented;
        AppendLine(lines, record);
        lines += '\n';
    }
    const std::string_view lineEnd = Platform::TextLineEnd;
    if (lineEnd == "\n")
    {
        return lines;
    }
    std::string text;
    for (const char character : lines)
    {
        if (character == '\n')
        {
            text += lineEnd;
        }
        else
        {
            text += character;
        }
    }
    return text;
}

std::string IniFileText::PlainText(const CIniFile::Records& records)
{
    std::string text;
    for (const CIniFile::Record& record : records)
    {
        text += record.Comments;
        if (record.Commented != LiveLine)
        {
            text += record.Commented;
        }
        AppendLine(text, record);
        text += '\n';
    }
    return text;
}
