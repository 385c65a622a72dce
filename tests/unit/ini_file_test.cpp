// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "platform/ini_file.h"

#include "support/captured_output.h"
#include "support/temp_folder.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace ogl::test {
namespace {

/// What a file holds after it was read and written back shows all that the reader understood.
struct RoundTrip {
    const char* name;
    std::string input;
    bool parsed;
    std::string saved;
};

const RoundTrip kRoundTrips[] = {
    {"empty", "", false, ""},
    {"only comments", ";one\n# two\n", false, ";one\n; two\n\n"},
    {"only text", "just words\nand ] more\n", false, ""},
    {"header comments, section and its comments", ";top\n[A]\n;in a\nk=v\n#  also\n[B]\n;in b\n",
     true, ";top\n\n[A]\n;in a\n;  also\nk=v\n\n[B]\n;in b\n\n"},
    {"blanks around the equals sign stay", "[A]\nkey = value \n", true, "[A]\nkey = value \n\n"},
    {"blanks in the header stay", "[ A ]\nk=v\n", true, "[ A ]\nk=v\n\n"},
    {"key with a semicolon is a comment", "[A]\nk;x=v\n", true, "[A]\n;x=v\n\n"},
    {"key with a bracket is a header", "[A]\nk[x]=v\ny=1\n", true, "[A]\n\n[x]\ny=1\n\n"},
    {"header up to the last bracket", "[A]b]c\nk=v\n", true, "[A]b]\nk=v\n\n"},
    {"header without closing bracket", "[A]\n[B\nk=v\n", true, "[A]\nk=v\n\n"},
    {"text before a header", "[A]\nxx [B] yy\nk=v\n", true, "[A]\n\n[B]\nk=v\n\n"},
    {"empty header", "[]\nk=v\n", true, "[]\nk=v\n\n"},
    {"assignment before any header", "k=v\n[A]\n", true, "[]\nk=v\n\n[A]\n\n"},
    {"comment after a first assignment belongs to its section", "k=v\n;c\n", true,
     "[]\n;c\nk=v\n\n"},
    {"two headers of one name", "[OpenGL]\na=1\n[opengl]\nb=2\n;c\n", true,
     "[OpenGL]\n;c\na=1\nb=2\n\n[opengl]\n\n"},
    {"same key twice keeps the last value and the first spelling", "[A]\nKey=1\nkEY=2\n", true,
     "[A]\nKey=2\n\n"},
    {"empty key and value", "[A]\n=\n", true, "[A]\n=\n\n"},
    {"line that begins with a blank", "[A]\n k=v\n", true, "[A]\n k=v\n\n"},
    {"CR LF", "[A]\r\n\r\nk=v\r\n;c\r\n", true, "[A]\n;c\nk=v\n\n"},
    {"line of a single CR", "[A]\n\r\r\nk=v\n\r", true, "[A]\nk=v\n\n"},
    {"CR inside a line stays", "[A]\nk=v\rw\n", true, "[A]\nk=v\rw\n\n"},
    {"no line end at the end", "[A]\nk=v", true, "[A]\nk=v\n\n"},
    {"zero byte inside a line", std::string("[A]\nk=a\0b\n", 10), true,
     std::string("[A]\nk=a\0b\n\n", 11)},
};

TEST(IniFile, ReadsTheGrammarAndWritesItBack) {
    const TempFolder folder;
    for (const RoundTrip& row : kRoundTrips) {
        SCOPED_TRACE(row.name);
        writeFile(folder.file("in.ini"), row.input);
        IniFile file(folder.hostFile("in.ini"));
        EXPECT_EQ(file.parse(), row.parsed);
        EXPECT_TRUE(file.save());
        EXPECT_EQ(readFile(folder.file("in.ini")), row.saved);
    }
}

struct FirstCharacter {
    const char* name;
    std::string line;
    std::string message; ///< empty = read as any other line
};

const FirstCharacter kFirstCharacters[] = {
    {"tab", "\tk=2", "Failing on char 9\n"},
    {"zero", std::string("\0k=2", 4), "Failing on char 0\n"},
    {"escape", "\x1bk=2", "Failing on char 27\n"},
    {"blank", " k=2", ""},
    {"tilde", "~k=2", ""},
    {"delete", "\x7fk=2", "Failing on char 127\n"},
    {"byte-order mark", "\xef\xbb\xbf[B]", "Failing on char -17\n"},
    {"last byte", "\xffk=2", "Failing on char -1\n"},
};

TEST(IniFile, StopsAtALineThatBeginsWithAnUnprintableCharacter) {
    const TempFolder folder;
    for (const FirstCharacter& row : kFirstCharacters) {
        SCOPED_TRACE(row.name);
        writeFile(folder.file("in.ini"), "[A]\nbefore=1\n" + row.line + "\nafter=3\n");
        IniFile file(folder.file("in.ini"));
        CapturedOutput output(1);
        const bool parsed = file.parse();
        EXPECT_EQ(output.stop(), row.message);
        EXPECT_EQ(parsed, row.message.empty());
        EXPECT_EQ(file.getInt("A", "before", 0), 1);
        EXPECT_EQ(file.getInt("A", "after", 0), row.message.empty() ? 3 : 0);
    }
}

struct Number {
    const char* value;
    int number;
};

const Number kNumbers[] = {
    {"8x", 8},
    {" \t8", 8},
    {"- 3", 0},
    {"0x10", 0},
    {"010", 10},
    {"2147483648", 2147483647},
    {"-99999999999999999999", -2147483647 - 1},
};

TEST(IniFile, ReadsTheLeadingNumberOfAValue) {
    for (const Number& row : kNumbers) {
        SCOPED_TRACE(row.value);
        IniFile file("unused");
        file.setValue("A", "k", row.value, true);
        EXPECT_EQ(file.getInt("A", "k", 42), row.number);
    }
}

TEST(IniFile, FoldsOnlyAsciiLettersWhenItComparesNames) {
    IniFile folding("unused");
    folding.setValue("OpenGL", "useFXAA", "1", true);
    folding.setValue("OpenGL", "caf\xe9", "2", true);
    EXPECT_EQ(folding.getInt("opengl", "USEFXAA", 0), 1);
    EXPECT_EQ(folding.getInt("OPENGL", "CAF\xe9", 0), 2);
    EXPECT_EQ(folding.getInt("OpenGL", "caf\xc9", 0), 0);
    EXPECT_EQ(folding.getInt("OpenGL ", "useFXAA", -5), -5);
    EXPECT_EQ(folding.getString("OpenGL", "useFXAA ", "none"), "none");
    // '@' and '`', '[' and '{' differ by the same bit as letters do.
    folding.setValue("[", "@", "3", true);
    EXPECT_EQ(folding.findSection("{"), -1);
    EXPECT_EQ(folding.findKey(folding.findSection("["), "`"), -1);

    IniFile exact("unused", false);
    exact.setValue("A", "k", "1", true);
    EXPECT_EQ(exact.findSection("a"), -1);
    EXPECT_EQ(exact.findKey(exact.findSection("A"), "K"), -1);
}

TEST(IniFile, ChangesOnlyWhatExistsUnlessToldToCreate) {
    const TempFolder folder;
    IniFile file(folder.file("out.ini"));
    EXPECT_FALSE(file.setValue("A", "k", "1", false));
    EXPECT_TRUE(file.setValue("A", "k", "2", true));
    EXPECT_FALSE(file.setValue("A", "l", "3", false));
    EXPECT_TRUE(file.setValue("a", "K", "4", false));
    ASSERT_TRUE(file.save());
    EXPECT_EQ(readFile(folder.file("out.ini")), "[A]\nk=4\n\n");
    for (const int noSection : {-1, 1, 2147483647})
        EXPECT_EQ(file.findKey(noSection, "k"), -1);
}

TEST(IniFile, ReportsFilesThatItCannotReadOrWrite) {
    const TempFolder folder;
    IniFile missing(folder.file("missing.ini"));
    EXPECT_FALSE(missing.parse());
    EXPECT_EQ(missing.getInt("A", "k", 7), 7);

    IniFile noFolder(folder.file("nowhere/out.ini"));
    noFolder.setValue("A", "k", "1", true);
    EXPECT_FALSE(noFolder.save());
    std::filesystem::create_directory(folder.file("nowhere"));
    EXPECT_TRUE(noFolder.save());
    EXPECT_EQ(readFile(folder.file("nowhere/out.ini")), "[A]\nk=1\n\n");

    IniFile isFolder(folder.path());
    isFolder.setValue("A", "k", "1", true);
    EXPECT_FALSE(isFolder.parse());
    EXPECT_FALSE(isFolder.save());
}

} // namespace
} // namespace ogl::test
