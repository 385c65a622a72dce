// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Periodic terms of the Solar Position Algorithm: I. Reda and A. Andreas, NREL/TP-560-34302,
// tables A4.2 and A4.3.
#pragma once

#include <span>

namespace ogl {

/// amplitude x cos(phase + frequency x t); angles in radians, t in Julian millennia.
struct PeriodicTerm {
    double amplitude; ///< 1e-8 radians or astronomical units
    double phase;
    double frequency;
};
using PeriodicTerms = std::span<const PeriodicTerm>;

/// The terms of the Earth's heliocentric longitude, latitude and radius by powers of t.
std::span<const PeriodicTerms> longitudeSeries();
std::span<const PeriodicTerms> latitudeSeries();
std::span<const PeriodicTerms> radiusSeries();

/// Parts of the nutation, in units of 0.0001 arc seconds; t in Julian centuries.
struct NutationTerm {
    int multiples[5]; ///< of the five arguments
    double longitude; ///< sine
    double longitudePerT;
    double obliquity; ///< cosine
    double obliquityPerT;
};
std::span<const NutationTerm> nutationTerms();

} // namespace ogl
