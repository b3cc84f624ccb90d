// The capacities for which the store's tables are sized.
#pragma once

namespace korvat::limits {

inline constexpr int piles = 200;           // MAXPIL
inline constexpr int cross_sections = 200;  // MAXCRS
inline constexpr int materials = 20;        // MAXMAT
inline constexpr int segment_types = 1000;  // MAXSEG
inline constexpr int pile_elements = 450;   // MAXELM
inline constexpr int pile_nodes = 451;      // MAXNOD
inline constexpr int pile_segments = 20;    // MAXSPP
inline constexpr int special_records = 500; // MAXSPC

inline constexpr int sub_sections = 12;   // of one composite cross section
inline constexpr int curve_points = 10;   // of one non-linear cross section
inline constexpr int section_values = 20; // CRSVAL slots of one cross section
inline constexpr int record_values = 40;  // numbers of one logical input record
inline constexpr int label_length = 80;   // LABEL
inline constexpr int line_length = 640;   // LINE
inline constexpr int node_components = 6; // of one special node value record

} // namespace korvat::limits
