// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// A Model as bytes, for the way from the importing process to the program. The reader trusts
// nothing: the importing process may have been broken by the file that it read.
#pragma once

#include "host/import/model.h"

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace ogl::host {

/// The bytes of a model.
std::vector<std::byte> packModel(const Model& model);

/// The bytes of a message that says why there is no model.
std::vector<std::byte> packFailure(const std::string& message);

/// Reads what packModel or packFailure wrote. Returns an empty string and fills `model`, or returns
/// the failure's message; bytes that are neither (cut off, numbers out of range, coordinates that
/// are no numbers) give a message too and leave `model` empty.
std::string unpackModel(std::span<const std::byte> bytes, Model& model);

} // namespace ogl::host
