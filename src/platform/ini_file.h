// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace ogl {

/// An INI file held in memory: ordered sections, each with its ordered keys, values and comments.
/// Names are kept as written and never trimmed; comparison folds A-Z to a-z when asked to.
class IniFile {
  public:
    /// One section. `values` runs parallel to `keys`.
    struct KeyTable {
        std::vector<std::string> keys;
        std::vector<std::string> values;
        std::vector<std::string> comments; ///< texts after the comment character
    };

    /// An empty object for the file at `path`; nothing is read.
    explicit IniFile(std::string path, bool caseInsensitive = true);
    virtual ~IniFile() = default;
    IniFile(const IniFile&) = default;
    IniFile& operator=(const IniFile&) = default;

    /// Adds what the file holds to the object. Returns true when there is at least one section and
    /// no line began with a character that is not printable; such a line is reported on standard
    /// output, and what was read before it stays.
    bool parse();

    /// Writes the whole file. Returns false when it cannot be created or written in full.
    bool save() const;

    /// The stored value, or `fallback` when the section or the key is missing.
    std::string getString(const std::string& section, const std::string& key,
                          const std::string& fallback) const;

    /// The leading decimal number of the stored value, 0 when it has none, saturated to the range
    /// of an int; `fallback` when the section or the key is missing.
    int getInt(const std::string& section, const std::string& key, int fallback) const;

    /// Stores a value. A missing section or key is made when `create`; else false is returned.
    bool setValue(const std::string& section, const std::string& key, const std::string& value,
                  bool create);

    /// Index of the first section of that name, or -1.
    int findSection(const std::string& name) const;

    /// Index of the first key of that name in section `sectionIndex`, or -1. An index that names
    /// no section gives -1.
    int findKey(int sectionIndex, const std::string& name) const;

    /// Appends an empty section, also when one of that name exists. Returns its index.
    int addSection(const std::string& name);

  private:
    bool sameName(const std::string& a, const std::string& b) const;
    void parseLine(const std::string& line, std::string& currentSection);
    void addComment(const std::string& text, const std::string& currentSection);

    bool caseInsensitive_;
    std::string path_;
    std::vector<KeyTable> sections_;
    std::vector<std::string> sectionNames_; ///< parallel to sections_
    std::vector<std::string> headerComments_;
};

} // namespace ogl
