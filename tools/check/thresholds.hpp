// Every threshold of the rules, with its unit and its reason.
#pragma once

#include "group/substances.hpp"

namespace korvat::check::threshold {

// Sizes, in m: what lies outside is a slip of units rather than a pile.
inline constexpr double least_diameter = group::pile_diameters.least;
inline constexpr double largest_diameter = group::pile_diameters.largest;
inline constexpr double least_steel_wall = 0.002; // casings begin at 4 mm
inline constexpr double largest_steel_wall = 0.2; // the heaviest rolled shells have 150 mm
inline constexpr double least_length = 0.5;       // of a pile; stubs in a test deck have 1 m
inline constexpr double largest_length = group::pile_lengths.largest;

// Unit weights of what fills a pile, in N/m3: oil and water begin at 8000, concrete ends at 27000.
inline constexpr double least_fluid_weight = 5.0e3;
inline constexpr double largest_fluid_weight = 3.0e4;

// Temperature strain for one degree. Materials of piles have 3E-6 (timber) to 2.4E-5 (aluminium) for a
// degree Celsius, 5/9 of it for one Fahrenheit. The program itself warns above 1E-4.
inline constexpr double least_temperature_strain = 1.5e-6;
inline constexpr double largest_temperature_strain = 3.0e-5;
inline constexpr double warned_temperature_strain = 1.0e-4;

// Unit factors: two units are the same when they differ by less than this part, as rounded conversions do.
inline constexpr double same_unit = 0.01;

// Diameter over wall. Below 8 nobody rolls a pile; above 120 the capacity checks have no strength.
inline constexpr double least_slenderness = 8.0;
inline constexpr double largest_slenderness = 120.0;

// A given stiffness over the computed one, either way: reductions for shear and for cracked concrete stay
// within it, a slip of units (1000) does not.
inline constexpr double stiffness_ratio = 5.0;

// The axial force at the ends of a given yield curve over the sum A sigma_y, either way: slips of units
// are 1000 and more, buckling and safety factors stay within it.
inline constexpr double curve_ratio = 3.0;

// A point of the elastic curve beyond the plastic one, as a part of its largest moment: rounded input.
inline constexpr double curve_rounding = 0.01;

// Overlap of two piles as a part of the sum of their radii; less is rounding of coordinates.
inline constexpr double overlap_rounding = 1.0e-6;

// Two heads coincide when they are nearer than this part of the sum of their radii.
inline constexpr double same_point = 0.01;

// Horizontal over vertical run: no rig drives a pile flatter than 1:1.
inline constexpr double flattest_batter = 1.0;
// With two axes exchanged a pile that is this flat becomes steeper than 1:2, as nearly every pile is.
inline constexpr double exchanged_batter = 2.0;

// Two stored lengths are the same to the program when they differ by no more, in L.
inline constexpr double same_length = 1.0e-10;

// Difference of a pile's length and the sum of its segments, as a part of the sum: accepted up to 0.001;
// lengths that are rounded to centimetres stay below half of that.
inline constexpr double length_difference = 0.0005;

// Element length over diameter: longer elements miss the bending near the mudline, which has a wave
// length of about 10 D; shorter ones than D/10 add nothing but nodes.
inline constexpr double longest_element = 5.0;
inline constexpr double shortest_element = 0.1;
// Lengths of neighbouring elements, either way: a finite-element mesh grows by no more.
inline constexpr double neighbour_ratio = 3.0;
// Elements of a pile, and their mean length over the diameter: below it the pile could be coarser.
inline constexpr int many_elements = 200;
inline constexpr double fine_element = 0.25;
// Bending stiffnesses of neighbouring elements, either way: a step in wall or diameter stays within it.
inline constexpr double stiffness_jump = 10.0;
// A section is between two others when it misses them by no more than this part: steps of the material
// make as much, a section that stands there by mistake makes more.
inline constexpr double between_rounding = 0.05;

// Temperature strain of a composite's element, which takes the node value itself for the strain: steel
// yields at about 0.002, no strain of temperature reaches this.
inline constexpr double composite_strain = 0.01;

// Soil displacement over the diameter of the pile, and rotation in radians: larger ones are slips of units.
inline constexpr double largest_displacement = 5.0;
inline constexpr double largest_rotation = 0.5;

} // namespace korvat::check::threshold
