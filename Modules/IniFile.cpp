#include "Modules/IniFile.h"

#include "Modules/IniFileText.h"
#include "Platform/Files.h"
#include "Platform/Text.h"
#include "Utilities/QOXUIUtils.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

namespace
{

using Record = CIniFile::Record;
using Records = CIniFile::Records;

constexpr char LiveLine = ' ';

// Repeated headers repeat their keys, so a file of a megabyte could grow to one of many
// gigabytes when it is sorted.
constexpr std::size_t MostSortedRecords = 1'000'000;

Record MakeRecord(const std::string& section, const std::string& key, const std::string& value)
{
    return { {}, LiveLine, section, key, value };
}

template <typename AnyRecords>
auto FindRecord(AnyRecords& content, const std::string& key, const std::string& section)
{
    return std::find_if(content.begin(), content.end(),
                        [&](const Record& record) { return record.Section == section && record.Key == key; });
}

template <typename AnyRecords>
auto FindSection(AnyRecords& content, const std::string& section)
{
    return std::find_if(content.begin(), content.end(),
                        [&section](const Record& record) { return record.Section == section; });
}

/// Loads, lets `change` do its work and saves. `change` gives false if there is nothing that
/// it could change; nothing is saved then.
template <typename Change>
bool ChangeFile(const CIniFile& file, const std::string& fileName, Change&& change)
{
    Records content;
    return file.Load(fileName, content) && change(content) && file.Save(fileName, content);
}

/// Same, for the first record of the section and key.
template <typename Change>
bool ChangeRecord(const CIniFile& file, const std::string& key, const std::string& section, const std::string& fileName,
                  Change&& change)
{
    return ChangeFile(file, fileName,
                      [&](Records& content)
                      {
                          const auto found = FindRecord(content, key, section);
                          if (found == content.end())
                          {
                              return false;
                          }
                          change(*found);
                          return true;
                      });
}

/// Same, for every record of the section.
template <typename Change>
bool ChangeSection(const CIniFile& file, const std::string& section, const std::string& fileName, Change&& change)
{
    return ChangeFile(file, fileName,
                      [&](Records& content)
                      {
                          for (Record& record : content)
                          {
                              if (record.Section == section)
                              {
                                  change(record);
                              }
                          }
                          return true;
                      });
}

/// The text as it is stored as comments. A line feed is added even to a text that ends in
/// one: a doubled line feed does no harm where a missing one would join two lines.
std::string StoredComments(const std::string& comments)
{
    return comments.size() >= 2 ? comments + '\n' : comments;
}

} // namespace

bool CIniFile::FileExists(const std::string& fileName) const
{
    return Platform::FileExists(Platform::FromCodePage(fileName));
}

bool CIniFile::Create(const std::string& fileName) const
{
    Records nothing;
    return Save(fileName, nothing);
}

bool CIniFile::Load(const std::string& fileName, Records& content) const
{
    content.clear();
    const std::wstring path = Platform::FromCodePage(fileName);
    const std::optional<Platform::FileBytes> bytes = Platform::ReadWholeFile(path);
    if (!bytes)
    {
        return false;
    }
    std::optional<Records> records = IniFileText::Parse(bytes->View());
    if (!records)
    {
        LogMessage(L"%s is not read: a section line is malformed", path);
        return false;
    }
    content = std::move(*records);
    return true;
}

bool CIniFile::Save(const std::string& fileName, Records& content) const
{
    Records grouped = content;
    IniFileText::GroupBySection(grouped);
    if (!Platform::SaveFileWhole(Platform::FromCodePage(fileName), IniFileText::FileText(grouped)))
    {
        return false;
    }
    content = std::move(grouped);
    return true;
}

bool CIniFile::AddSection(const std::string& section, const std::string& fileName) const
{
    return ChangeFile(*this, fileName,
                      [&section](Records& content)
                      {
                          content.push_back(MakeRecord(section, {}, {}));
                          return true;
                      });
}

bool CIniFile::AddRecord(const std::string& key, const std::string& value, const std::string& section,
                         const std::string& fileName) const
{
    return ChangeFile(*this, fileName,
                      [&](Records& content)
                      {
                          content.push_back(MakeRecord(section, key, value));
                          return true;
                      });
}

bool CIniFile::SetValue(const std::string& key, const std::string& value, const std::string& section,
                        const std::string& fileName) const
{
    return ChangeFile(*this, fileName,
                      [&](Records& content)
                      {
                          const auto firstOfSection = FindSection(content, section);
                          const auto record = FindRecord(content, key, section);
                          if (firstOfSection == content.end())
                          {
                              content.push_back(MakeRecord(section, {}, {}));
                              content.push_back(MakeRecord(section, key, value));
                          }
                          else if (record != content.end())
                          {
                              record->Value = value;
                          }
                          else
                          {
                              content.insert(firstOfSection + 1, MakeRecord(section, key, value));
                          }
                          return true;
                      });
}

std::string CIniFile::GetValue(const std::string& key, const std::string& section, const std::string& fileName) const
{
    const Records found = GetRecord(key, section, fileName);
    return found.empty() ? std::string() : found.front().Value;
}

CIniFile::Records CIniFile::GetRecord(const std::string& key, const std::string& section,
                                      const std::string& fileName) const
{
    Records content;
    if (!Load(fileName, content))
    {
        return {};
    }
    const auto found = FindRecord(content, key, section);
    return found == content.end() ? Records() : Records{ *found };
}

CIniFile::Records CIniFile::GetSectionRecords(const std::string& section, const std::string& fileName) const
{
    Records content;
    Load(fileName, content);
    std::erase_if(content,
                  [&section](const Record& record) { return record.Section != section || record.Key.empty(); });
    return content;
}

bool CIniFile::RecordExists(const std::string& key, const std::string& section, const std::string& fileName) const
{
    return !GetRecord(key, section, fileName).empty();
}

bool CIniFile::SectionExists(const std::string& section, const std::string& fileName) const
{
    Records content;
    return Load(fileName, content) && FindSection(content, section) != content.end();
}

bool CIniFile::DeleteRecord(const std::string& key, const std::string& section, const std::string& fileName) const
{
    return ChangeFile(*this, fileName,
                      [&](Records& content)
                      {
                          const auto found = FindRecord(content, key, section);
                          if (found == content.end())
                          {
                              return false;
                          }
                          content.erase(found);
                          return true;
                      });
}

bool CIniFile::DeleteSection(const std::string& section, const std::string& fileName) const
{
    return ChangeFile(*this, fileName,
                      [&section](Records& content)
                      {
                          std::erase_if(content,
                                        [&section](const Record& record) { return record.Section == section; });
                          return true;
                      });
}

bool CIniFile::CommentRecord(char commentCharacter, const std::string& key, const std::string& section,
                             const std::string& fileName) const
{
    return ChangeRecord(*this, key, section, fileName,
                        [commentCharacter](Record& record) { record.Commented = commentCharacter; });
}

bool CIniFile::UnCommentRecord(const std::string& key, const std::string& section, const std::string& fileName) const
{
    return CommentRecord(LiveLine, key, section, fileName);
}

bool CIniFile::CommentSection(char commentCharacter, const std::string& section, const std::string& fileName) const
{
    return ChangeSection(*this, section, fileName,
                         [commentCharacter](Record& record) { record.Commented = commentCharacter; });
}

bool CIniFile::UnCommentSection(const std::string& section, const std::string& fileName) const
{
    return CommentSection(LiveLine, section, fileName);
}

bool CIniFile::SetRecordComments(const std::string& comments, const std::string& key, const std::string& section,
                                 const std::string& fileName) const
{
    return ChangeRecord(*this, key, section, fileName,
                        [&comments](Record& record) { record.Comments = StoredComments(comments); });
}

bool CIniFile::SetSectionComments(const std::string& comments, const std::string& section,
                                  const std::string& fileName) const
{
    return SetRecordComments(comments, {}, section, fileName); // the header has no key
}

bool CIniFile::RenameSection(const std::string& oldName, const std::string& newName, const std::string& fileName) const
{
    return ChangeSection(*this, oldName, fileName, [&newName](Record& record) { record.Section = newName; });
}

CIniFile::Records CIniFile::GetSections(const std::string& fileName) const
{
    Records content;
    Load(fileName, content);
    std::erase_if(content, [](const Record& record) { return !record.Key.empty(); });
    return content;
}

std::vector<std::string> CIniFile::GetSectionNames(const std::string& fileName) const
{
    std::vector<std::string> names;
    for (Record& header : GetSections(fileName))
    {
        names.push_back(std::move(header.Section));
    }
    return names;
}

bool CIniFile::Sort(const std::string& fileName, bool descending) const
{
    Records content;
    if (!Load(fileName, content))
    {
        return false;
    }
    const auto sortBy = [descending](Records& records, std::string Record::*member)
    {
        std::stable_sort(records.begin(), records.end(),
                         [=](const Record& left, const Record& right)
                         { return descending ? right.*member < left.*member : left.*member < right.*member; });
    };
    Records headers;
    std::map<std::string, Records> keysOfSection;
    for (Record& record : content)
    {
        Records& list = record.Key.empty() ? headers : keysOfSection[record.Section];
        list.push_back(std::move(record));
    }
    if (headers.empty())
    {
        return false;
    }
    sortBy(headers, &Record::Section);
    for (auto& [section, keys] : keysOfSection)
    {
        sortBy(keys, &Record::Key);
    }
    Records sorted;
    for (const Record& header : headers)
    {
        // A header that is there twice brings its keys along twice.
        const Records& keys = keysOfSection[header.Section];
        if (sorted.size() + keys.size() >= MostSortedRecords)
        {
            return false;
        }
        sorted.push_back(header);
        sorted.insert(sorted.end(), keys.begin(), keys.end());
    }
    return Save(fileName, sorted);
}

std::string CIniFile::Content(const std::string& fileName) const
{
    Records content;
    return Load(fileName, content) ? IniFileText::PlainText(content) : std::string();
}
