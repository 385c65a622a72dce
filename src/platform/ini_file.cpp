// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "platform/ini_file.h"

#include "platform/file.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <memory>
#include <utility>

namespace ogl {

namespace {

/// The bytes of the file with CR LF read as LF, so that every system reads the same text.
bool readText(const std::string& path, std::string& text) {
    const FileHandle file(openFile(path.c_str(), "rb"));
    if (!file)
        return false;
    char buffer[4096];
    for (size_t count; (count = std::fread(buffer, 1, sizeof buffer, file.get())) > 0;)
        text.append(buffer, count);
    if (std::ferror(file.get()))
        return false;
    for (size_t at = text.find("\r\n"); at != std::string::npos; at = text.find("\r\n", at))
        text.erase(at, 1);
    return true;
}

bool isPrintable(char character) {
    return character >= 0x20 && character <= 0x7e;
}

char folded(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a')
                                                : character;
}

} // namespace

IniFile::IniFile(std::string path, bool caseInsensitive)
    : caseInsensitive_(caseInsensitive), path_(std::move(path)) {}

bool IniFile::parse() {
    std::string text;
    if (!readText(path_, text))
        return false;
    std::string currentSection;
    for (size_t begin = 0; begin < text.size();) {
        const size_t end = std::min(text.find('\n', begin), text.size());
        const std::string line = text.substr(begin, end - begin);
        begin = end + 1;
        if (line.empty() || line == "\r")
            continue;
        if (!isPrintable(line[0])) {
            std::printf("Failing on char %d\n", static_cast<signed char>(line[0]));
            return false;
        }
        parseLine(line, currentSection);
    }
    return !sections_.empty();
}

void IniFile::parseLine(const std::string& line, std::string& currentSection) {
    const size_t marker = line.find_first_of(";#[=");
    if (marker == std::string::npos)
        return;
    if (line[marker] == '=') {
        setValue(currentSection, line.substr(0, marker), line.substr(marker + 1), true);
    } else if (line[marker] == '[') {
        const size_t closing = line.rfind(']');
        if (closing == std::string::npos || closing < marker)
            return;
        currentSection = line.substr(marker + 1, closing - marker - 1);
        addSection(currentSection);
    } else {
        addComment(line.substr(marker + 1), currentSection);
    }
}

void IniFile::addComment(const std::string& text, const std::string& currentSection) {
    if (sections_.empty()) {
        headerComments_.push_back(text);
        return;
    }
    const int section = findSection(currentSection);
    if (section >= 0)
        sections_[static_cast<size_t>(section)].comments.push_back(text);
}

bool IniFile::save() const {
    FileHandle file(openFile(path_.c_str(), "wb"));
    if (!file)
        return false;
    std::string text;
    for (const std::string& comment : headerComments_)
        text += ";" + comment + "\n";
    if (!headerComments_.empty())
        text += "\n";
    for (size_t i = 0; i < sections_.size(); ++i) {
        const KeyTable& section = sections_[i];
        text += "[" + sectionNames_[i] + "]\n";
        for (const std::string& comment : section.comments)
            text += ";" + comment + "\n";
        for (size_t k = 0; k < section.keys.size(); ++k)
            text += section.keys[k] + "=" + section.values[k] + "\n";
        text += "\n";
    }
    const bool written = std::fwrite(text.data(), 1, text.size(), file.get()) == text.size();
    return std::fclose(file.release()) == 0 && written;
}

std::string IniFile::getString(const std::string& section, const std::string& key,
                               const std::string& fallback) const {
    const int sectionIndex = findSection(section);
    const int keyIndex = findKey(sectionIndex, key);
    if (keyIndex < 0)
        return fallback;
    return sections_[static_cast<size_t>(sectionIndex)].values[static_cast<size_t>(keyIndex)];
}

int IniFile::getInt(const std::string& section, const std::string& key, int fallback) const {
    const std::string text = getString(section, key, std::to_string(fallback));
    const long long value = std::strtoll(text.c_str(), nullptr, 10);
    return static_cast<int>(std::clamp<long long>(value, std::numeric_limits<int>::min(),
                                                  std::numeric_limits<int>::max()));
}

bool IniFile::setValue(const std::string& section, const std::string& key, const std::string& value,
                       bool create) {
    int sectionIndex = findSection(section);
    if (sectionIndex < 0) {
        if (!create)
            return false;
        sectionIndex = addSection(section);
    }
    KeyTable& table = sections_[static_cast<size_t>(sectionIndex)];
    const int keyIndex = findKey(sectionIndex, key);
    if (keyIndex >= 0) {
        table.values[static_cast<size_t>(keyIndex)] = value;
        return true;
    }
    if (!create)
        return false;
    table.keys.push_back(key);
    table.values.push_back(value);
    return true;
}

int IniFile::findSection(const std::string& name) const {
    for (size_t i = 0; i < sectionNames_.size(); ++i)
        if (sameName(sectionNames_[i], name))
            return static_cast<int>(i);
    return -1;
}

int IniFile::findKey(int sectionIndex, const std::string& name) const {
    if (sectionIndex < 0 || static_cast<size_t>(sectionIndex) >= sections_.size())
        return -1;
    const std::vector<std::string>& keys = sections_[static_cast<size_t>(sectionIndex)].keys;
    for (size_t i = 0; i < keys.size(); ++i)
        if (sameName(keys[i], name))
            return static_cast<int>(i);
    return -1;
}

int IniFile::addSection(const std::string& name) {
    sectionNames_.push_back(name);
    sections_.emplace_back();
    return static_cast<int>(sections_.size()) - 1;
}

bool IniFile::sameName(const std::string& a, const std::string& b) const {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [this](char x, char y) {
        return caseInsensitive_ ? folded(x) == folded(y) : x == y;
    });
}

} // namespace ogl
