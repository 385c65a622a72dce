// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "abi/library.h"
#include "platform/resource_text.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>
#include <string>

namespace ogl {
namespace {

TEST(Resources, TheLibraryCarriesTheShaderTexts) {
    char path[1024] = {};
    ASSERT_GT(GetModuleFileNameA(test::library().module, path, sizeof path), 0u);
    const std::string library = test::readFile(path);
    for (int number = 101; number <= 130; ++number) {
        const std::string text = loadResourceText(number);
        ASSERT_FALSE(text.empty()) << number;
        EXPECT_NE(library.find(text), std::string::npos) << number;
    }
}

} // namespace
} // namespace ogl
