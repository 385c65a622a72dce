// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/import/ifc_names.h"

#include <algorithm>
#include <cctype>

namespace ogl::host {
namespace {

constexpr size_t kGlobalIdLength = 22;

bool isGlobalId(std::string_view text) {
    return text.size() == kGlobalIdLength && std::ranges::all_of(text, [](unsigned char c) {
               return std::isalnum(c) || c == '_' || c == '$';
           });
}

constexpr std::string_view kHelperClasses[] = {"IfcSpace",       "IfcOpeningElement",
                                               "IfcGrid",        "IfcAnnotation",
                                               "IfcSpatialZone", "IfcVirtualElement"};

} // namespace

std::string ifcElementName(std::string_view nodeName) {
    if (isIfcElement(nodeName) && nodeName.size() > kGlobalIdLength + 1) {
        const size_t id = nodeName.size() - kGlobalIdLength;
        if (nodeName[id - 1] == '_' && isGlobalId(nodeName.substr(id)))
            return std::string(nodeName.substr(0, id - 1));
    }
    return std::string(nodeName);
}

bool isIfcElement(std::string_view nodeName) {
    return nodeName.starts_with("Ifc") && !nodeName.starts_with("IfcMappedItem");
}

bool isIfcHelper(std::string_view nodeName) {
    const std::string_view className = nodeName.substr(0, nodeName.find('_'));
    return std::ranges::find(kHelperClasses, className) != std::end(kHelperClasses);
}

} // namespace ogl::host
