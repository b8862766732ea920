#pragma once

#include <string>
#include <vector>

/// Reader and writer of the ini-style configuration file.
///
/// Nothing is kept between two calls: each loads the whole file, and each change writes it
/// whole. Texts are bytes without any conversion; file names are in the system code page.
/// Sections and keys are compared byte by byte. A file that can't be opened, or that has a
/// section line without its `]`, makes every operation fail and stays as it is.
class CIniFile
{
public:
    /// One line that carries data, with the comment lines ahead of it. A record with an
    /// empty `Key` is a section's header.
    struct Record
    {
        std::string Comments; ///< Each line with its `#` or `;` and a line feed at its end.
        char Commented = ' '; ///< A blank, or the `#` or `;` that comments the line out.
        std::string Section;
        std::string Key;
        std::string Value;

        friend bool operator==(const Record&, const Record&) = default;
    };
    using Records = std::vector<Record>;

    virtual ~CIniFile() = default;

    bool FileExists(const std::string& fileName) const;

    /// Makes an empty file; one that exists is emptied.
    bool Create(const std::string& fileName) const;

    /// Reads the file into `content`. A last line without a line end is not seen.
    bool Load(const std::string& fileName, Records& content) const;

    /// Groups `content` by section, in the order in which the sections first appear, and
    /// writes it. On failure `content` and the file stay as they are.
    bool Save(const std::string& fileName, Records& content) const;

    /// Appends a section header, also if there is one of that name.
    bool AddSection(const std::string& section, const std::string& fileName) const;

    /// Appends a key to its section, also if there is one of that name.
    bool AddRecord(const std::string& key, const std::string& value, const std::string& section,
                   const std::string& fileName) const;

    /// Changes the first key of that name, or puts a new one behind the section's first
    /// record, or appends the section with the key.
    bool SetValue(const std::string& key, const std::string& value, const std::string& section,
                  const std::string& fileName) const;

    /// Value of the first key of that name, commented out or not; empty if there is none.
    std::string GetValue(const std::string& key, const std::string& section, const std::string& fileName) const;

    /// The first record of that section and key as a list of one, or an empty list.
    Records GetRecord(const std::string& key, const std::string& section, const std::string& fileName) const;

    /// All keys of the section in the order of the file.
    Records GetSectionRecords(const std::string& section, const std::string& fileName) const;

    bool RecordExists(const std::string& key, const std::string& section, const std::string& fileName) const;

    /// True if any record is of the section, header or not.
    bool SectionExists(const std::string& section, const std::string& fileName) const;

    /// Removes the first key of that name; false if there is none.
    bool DeleteRecord(const std::string& key, const std::string& section, const std::string& fileName) const;

    /// Removes a section with its header. True also if there was nothing to remove.
    bool DeleteSection(const std::string& section, const std::string& fileName) const;

    /// Comments the first key of that name out; false if there is none.
    bool CommentRecord(char commentCharacter, const std::string& key, const std::string& section,
                       const std::string& fileName) const;
    bool UnCommentRecord(const std::string& key, const std::string& section, const std::string& fileName) const;
    bool CommentSection(char commentCharacter, const std::string& section, const std::string& fileName) const;
    bool UnCommentSection(const std::string& section, const std::string& fileName) const;

    /// Replaces the comments of the first key of that name; false if there is none. A text
    /// of two characters or more gets a line feed at its end in all cases.
    bool SetRecordComments(const std::string& comments, const std::string& key, const std::string& section,
                           const std::string& fileName) const;

    /// Same for the section's header.
    bool SetSectionComments(const std::string& comments, const std::string& section, const std::string& fileName) const;

    bool RenameSection(const std::string& oldName, const std::string& newName, const std::string& fileName) const;

    /// All headers in the order of the file.
    Records GetSections(const std::string& fileName) const;
    std::vector<std::string> GetSectionNames(const std::string& fileName) const;

    /// Sorts the sections by name and the keys of each by key. Keys without a header go, and
    /// a header that is there twice gets its keys twice. False, with the file as it was, if
    /// there is no header or if that would make a million records.
    bool Sort(const std::string& fileName, bool descending) const;

    /// The file's text, built from its records: without the blank ahead of live lines.
    std::string Content(const std::string& fileName) const;
};
