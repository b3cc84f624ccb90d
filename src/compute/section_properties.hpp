// Property records of the cross sections, plain and composite.
#pragma once

#include "model/store/store.hpp"

namespace korvat {

// Forms slots 1 to 15 for the cross sections 1..NUMCRS; slots 16 to 20 are not touched.
void form_section_properties(Store& cmn);

// Appends the sub-sections of composite cross sections to NUMCRS and sums them up; also forms
// slots 16 and 17. Does nothing for revision 4, whose sections have no type.
void form_composite_sections(Store& cmn);

} // namespace korvat
