// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Stands in for the SDK's header where there is none: the calls that a host makes, from ogl's
// platform layer.
#pragma once

#include "platform/win32.h"
