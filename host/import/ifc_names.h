// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The importer names the nodes of an IFC file "IfcWall_name_globalId".
#pragma once

#include <string>
#include <string_view>

namespace ogl::host {

/// The name of a building element without its 22 characters of identification: "IfcWall_name".
/// Other names come back as they are.
std::string ifcElementName(std::string_view nodeName);

/// Whether a node stands for a building element itself, not for a step of the file's structure
/// such as "IfcMappedItem" or "$RelAggregates".
bool isIfcElement(std::string_view nodeName);

/// Whether a node is of a class that is no part of the visible building: spaces, openings, grids,
/// annotations and virtual elements.
bool isIfcHelper(std::string_view nodeName);

} // namespace ogl::host
