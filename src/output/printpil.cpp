#include "output/printpil.hpp"

#include "fortran/save_holder.hpp"
#include "output/listing_pages.hpp"

namespace korvat {

void write_page_header(Store& cmn, const PageTexts& texts) {
    const auto& months = cmn.printpil_sve->get<printpil_save>().months;
    const TimeFields& ITIME = texts.ITIME;
    const std::string_view month = months.at(static_cast<std::size_t>(ITIME(2)));
    cmn.runtime.write(
        cmn.NF13,
        "(/,'1',/,' KORVAT Output   Program Version = ',a11,a11,5x,'Time = ',i2.2,'-',a3,'-',i4,2x,i2.2,':',i2.2,':',i2.2)",
        fortran::right_justified(texts.version.view()), texts.release_date, ITIME(3),
        fortran::characters(month), ITIME(1), ITIME(4), ITIME(5), ITIME(6));
    cmn.runtime.write(cmn.NF13, "(/,1x,a80,/,' ')", cmn.LABEL);
}

void printpil(Store& cmn, const fortran::Text<10>& version, const fortran::Text<11>& release_date,
              const TimeFields& ITIME) {
    const PageTexts texts{version, release_date, ITIME};
    write_page_header(cmn, texts);
    write_cross_section_tables(cmn);
    if (cmn.IREV != 4) {
        write_composite_table(cmn);
        write_curve_table(cmn);
    }
    if (cmn.JPRINT >= 2) {
        write_pile_tables(cmn, texts);
        write_dummy_pile_heads(cmn, texts);
    }
    write_check_sums(cmn, texts);
}

} // namespace korvat
