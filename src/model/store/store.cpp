#include "model/store/store.hpp"

#include "fortran/save_holder.hpp"

namespace korvat {

Store::Store(int argc, const char* const* argv)
    : printpil_sve(std::make_unique<fortran::SaveHolder>()),
      sketch_sve(std::make_unique<fortran::SaveHolder>()), runtime(argc, argv) {}

Store::~Store() = default;

double material_value(const Store& cmn, const Table1<double, limits::materials>& values,
                      int material) {
    if (material < 1 || material > cmn.NUMMAT) return 0.0;
    return values(material);
}

double stress_factor(const Store& cmn) {
    return cmn.FACF / cmn.FACL / cmn.FACL;
}

void rstpil(Store& cmn) {
    cmn.NSEGP.clear();
    cmn.NELP.clear();
    cmn.IFIX.clear();
    cmn.ITIP.clear();
    cmn.TSNOD.clear();
    cmn.ISEGP.clear();
}

} // namespace korvat
