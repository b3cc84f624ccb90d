// The runtime's holder for the saved local state of one routine.
#pragma once

#include "fortran/fem_runtime.hpp"

namespace korvat::fortran {

// Empty until the routine's first call; then it owns that routine's saved state until the store
// goes. One holder serves one type.
class SaveHolder {
public:
    template <typename Save>
    [[nodiscard]] Save& get() {
        if (holder_.is_called_first_time()) holder_.construct<Save>();
        return holder_.get<Save>();
    }

    [[nodiscard]] bool is_empty() { return holder_.is_called_first_time(); }

private:
    fem::cmn_sve holder_;
};

} // namespace korvat::fortran
