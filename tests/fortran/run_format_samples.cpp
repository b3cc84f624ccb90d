// Samples of the FORMATs of the run driver and of the record reader.
#include "format_samples.hpp"

namespace korvat::test {

using fortran::characters;
using fortran::right_justified;

FormatSamples run_format_samples() {
    static const std::string label = std::string(77, 'x') + "789";
    return {
        // Start line
        {"contrl.cpp",
         "START PROGRAM KORVAT",
         {right_justified("7.6.0.81  "), characters("04-Feb-2020")},
         "\n +++++ START PROGRAM KORVAT   VERSION =  7.6.0.81  04-Feb-2020\n"},

        // Files that cannot be opened
        {"contrl.cpp",
         "FILE PILE.O7 OPEN PROBLEM",
         {0},
         "\n **** SR/CONTRL  FILE PILE.O7 OPEN PROBLEM  IERR=    0\n"},
        {"contrl.cpp",
         "FILE KORVAT.INP OPEN PROBLEM",
         {1},
         "\n **** SR/CONTRL  FILE KORVAT.INP OPEN PROBLEM  IERR=    1\n"},
        {"contrl.cpp",
         "FILE KORVAT.LIS OPEN PROBLEM",
         {1},
         "\n **** SR/CONTRL  FILE KORVAT.LIS OPEN PROBLEM  IERR=    1\n"},
        {"contrl.cpp",
         "FILE LOAD.09 OPEN PROBLEM",
         {-1},
         "\n **** SR/CONTRL  FILE LOAD.09 OPEN PROBLEM  IERR=   -1\n"},

        // Steps that failed
        {"contrl.cpp",
         "ERROR FROM SR/READPI",
         {1},
         "\n **** SR/CONTRL  ERROR FROM SR/READPI  IERR=    1\n"},
        {"contrl.cpp",
         "ERROR FROM SR/BUILD",
         {1},
         "\n **** SR/CONTRL  ERROR FROM SR/BUILD  IERR=    1\n"},
        {"contrl.cpp",
         "ERROR FROM SR/PRINT",
         {12},
         "\n **** SR/CONTRL  ERROR FROM SR/PRINT  IERR=   12\n"},
        {"contrl.cpp",
         "ERROR FROM SR/SAVE",
         {2},
         "\n **** SR/CONTRL  ERROR FROM SR/SAVE  IERR=    2\n"},
        {"contrl.cpp",
         "ERROR RETURN FROM SR/LOADS",
         {99999},
         "\n **** SR/CONTRL  ERROR RETURN FROM SR/LOADS  IERR=99999\n"},

        // Progress lines
        {"contrl.cpp",
         "INPUT FILE READ , LABEL LINE",
         {characters(label)},
         " +++++ INPUT FILE READ , LABEL LINE :\n " + label.substr(0, 78) + "\n"},
        {"contrl.cpp",
         "PILE GEOMETRY VALUES COMPUTED",
         {},
         " +++++ PILE GEOMETRY VALUES COMPUTED\n"},
        {"contrl.cpp",
         "RESULT FILE KORVAT.LIS HAS BEEN PRINTED",
         {},
         " +++++ RESULT FILE KORVAT.LIS HAS BEEN PRINTED\n"},
        {"contrl.cpp",
         "TOLVAN INPUT FILE PILE.07 HAS BEEN GENERATED",
         {},
         " +++++ TOLVAN INPUT FILE PILE.07 HAS BEEN GENERATED\n"},
        {"contrl.cpp", "NO LOAD VECTOR WAS GIVEN", {}, " +++++ NO LOAD VECTOR WAS GIVEN\n \n"},
        {"contrl.cpp",
         "TOLVAN INPUT FILE LOAD.09 HAS BEEN GENERATED",
         {},
         " +++++ TOLVAN INPUT FILE LOAD.09 HAS BEEN GENERATED\n \n"},
        {"read.cpp",
         "(1x,a)",
         {characters("NORMAL EXIT FROM KORVAT   ")},
         " NORMAL EXIT FROM KORVAT   \n"},
        {"contrl.cpp",
         "(1x,a)",
         {characters("NORMAL EXIT FROM KORVAT   ")},
         " NORMAL EXIT FROM KORVAT   \n"},

        // Head of the listing
        {"contrl.cpp",
         "(' PROGRAM KORVAT   Pile Data Generator for Program TOLVAN',/,/,' VERSION :  ',a11,a11)",
         {right_justified("7.6.0.81  "), characters("04-Feb-2020")},
         " PROGRAM KORVAT   Pile Data Generator for Program TOLVAN\n\n"
         " VERSION :   7.6.0.81  04-Feb-2020\n"},

        // Head of the sketch
        {"contrl.cpp",
         "BELOW SKETCH SHOWS PILE HEADS (",
         {characters("Jetty"), 1, 12, 13, 24},
         "\n Jetty" + blanks(75) +
             "\n\n\n BELOW SKETCH SHOWS PILE HEADS (001 - 012) AND PILE TIPS (013 - 024)\n\n \n"},

        // Time stamps
        {"time_stamp.cpp",
         "THIS RUN WAS STARTED",
         {0, 7, characters("MAR"), 2024, 0, 9, 0, 5, 0, 3},
         "\n THIS RUN WAS STARTED :  07-MAR-2024  AT  09:05:03 HOURS\n"},
        {"time_stamp.cpp",
         "THIS RUN WAS TERMINATED",
         {3, 1, characters("DEC"), 1999, 2, 3, 5, 9, 5, 8},
         "\n THIS RUN WAS TERMINATED :  31-DEC-1999  AT  23:59:58 HOURS\n"},

        // Identification page
        {"identification_page.cpp", "(a)", {characters("  ***")}, "  ***\n"},
        {"identification_page.cpp",
         "30(a,1x)",
         {characters("K"), characters("o"), characters("r")},
         "K o r\n"},
        {"identification_page.cpp", "(i10.9)", {-857888068}, "-857888068\n"},
        {"identification_page.cpp", "(i10.10)", {857888068}, "0857888068\n"},

        // Copy without comments, echo
        {"input_copy.cpp", "(a120)", {characters("1.0 2.0")}, "1.0 2.0" + blanks(113) + "\n"},
        {"echo.cpp",
         "ECHO PRINT OF INPUT DATA TO PROGRAM \"NAME\"",
         {},
         "1\n          ECHO PRINT OF INPUT DATA TO PROGRAM \"NAME\"\n"},
        {"echo.cpp",
         "(/,10x,9('0'),10('1'),10('2'),10('3'),10('4'),10('5'),10('6'),10('7'),'8')",
         {},
         "\n          00000000011111111112222222222333333333344444444445555555555"
         "666666666677777777778\n"},
        {"echo.cpp",
         "1234567890",
         {},
         "          1234567890123456789012345678901234567890"
         "1234567890123456789012345678901234567890\n\n"},
        {"echo.cpp",
         "ERROR IN SR/ECHO",
         {11, 13, 1},
         "\n **** ERROR IN SR/ECHO  NFR,NFW,NOW=   11   13    1\n"},
        {"echo.cpp", "----", {12, characters("1.0 2.0")}, "   12---- 1.0 2.0" + blanks(73) + "\n"},

        // Revision
        {"get_revision.cpp",
         "Input data is for revision 4 : 2006-06-11",
         {},
         "\n Input data is for revision 4 : 2006-06-11\n \n"},
        {"get_revision.cpp",
         "Input data is for revision 5 : 2009-09-01",
         {},
         "\n Input data is for revision 5 : 2009-09-01\n \n"},
        {"get_revision.cpp",
         "Error message from SR/GetRevision: End-of-file at",
         {12},
         "\n **** Error message from SR/GetRevision: End-of-file at unit= 12\n"},
        {"get_revision.cpp",
         "Non-accepted date: Year-Month-Day",
         {2006, 13, 1, characters("KORVAT Version: 2006-13-01")},
         "\n **** Error message from SR/GetRevision:\n"
         " Non-accepted date: Year-Month-Day= 2006-13-01\n KORVAT Version: 2006-13-01" +
             blanks(54) + "\n"},
        {"get_revision.cpp",
         "The given date is not a valid revision date",
         {characters("KORVAT Version: 2010-01-01")},
         "\n **** Error message from SR/GetRevision:\n"
         " The given date is not a valid revision date\n KORVAT Version: 2010-01-01" +
             blanks(54) +
             "\n Valid dates are:\n Revision 4, 2006-06-11\n Revision 5, 2009-09-01\n"},

        // Last lines read
        {"linerd.cpp",
         "last lines read from the temporary",
         {7},
         "\n The  7 last lines read from the temporary input file are shown below.\n"},
        {"linerd.cpp",
         "Error occurred while reading the bottom line",
         {},
         " Error occurred while reading the bottom line :\n \n"},
        {"linerd.cpp",
         "An end-of-file was encountered at the bottom line",
         {},
         " An end-of-file was encountered at the bottom line :\n \n"},
        {"linerd.cpp",
         "The error was detected by SR/LINERD",
         {},
         " The error was detected by SR/LINERD :\n \n"},
        {"linerd.cpp",
         "Non-accepted value(s) exist in the input",
         {},
         " Non-accepted value(s) exist in the input :\n \n"},
        {"linerd.cpp",
         "(i5,' : ',a70)",
         {31, characters("1 2 3")},
         "   31 : 1 2 3" + blanks(65) + "\n"},
        {"linerd.cpp", "(i5,' : ',a70)", {32}, "   32 : \n"},

        // Record reader
        {"read.cpp", "(6x,a)", {characters("123456789")}, "      123456789\n"},
        {"read.cpp", "(a,/)", {characters(" text")}, " text\n\n"},
        {"read.cpp", "(1x,2a)", {characters("ab"), characters("   ^")}, " ab   ^\n"},
        {"read.cpp", "(/,/)", {}, "\n\n\n"},
        {"read.cpp",
         "(/,' **** SR/READ : NO NUMBERS FOUND AT LOCATION =',i5)",
         {215},
         "\n **** SR/READ : NO NUMBERS FOUND AT LOCATION =  215\n"},
        {"read.cpp",
         "ON A ''PHYSICAL CONTINUATION",
         {301},
         "\n **** SR/READ : NO NUMBERS FOUND AT LOCATION =  301, ON A 'PHYSICAL CONTINUATION\n"
         "                LINE.'\n"},
        {"read.cpp",
         "NUMBER OF VARIABLES WHICH SHOULD BE ON",
         {9, 10, 302},
         "\n **** SR/READ : NUMBER OF VARIABLES WHICH SHOULD BE ON LINE:    9,\n"
         "                WAS NOT EQUAL TO NUMBER OF INPUT VARIABLES FOUND:   10,\n"
         "                AT LOCATION =   302\n"},
        {"read.cpp",
         "END-OF-FILE AT LOCATION",
         {1101},
         "\n **** SR/READ : END-OF-FILE AT LOCATION =  1101\n"},
        {"read.cpp",
         "FORMAT ERROR AT LOCATION",
         {1101},
         "\n **** SR/READ : FORMAT ERROR AT LOCATION = 1101\n"},
        {"read.cpp",
         "LENGTH OF ONE LOGICAL INPUT LINE",
         {640, 900},
         "\n **** SR/READ : LENGTH OF ONE LOGICAL INPUT LINE LONGER THAN:  640 CHARACTERS.\n"
         "                AT LOCATION =   900\n"},
    };
}

} // namespace korvat::test
