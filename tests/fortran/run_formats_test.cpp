// Every FORMAT of the run driver, the record reader and the outputs, once, with ordinary values.
#include "runtime_fixture.hpp"

#include "fortran/internal_write.hpp"

namespace korvat::test {
namespace {

using fortran::characters;
using fortran::right_justified;
using fortran::Text;

class RunFormats : public RuntimeTest {};

std::string blanks(std::size_t count) {
    return std::string(count, ' ');
}

TEST_F(RunFormats, StartLine) {
    EXPECT_EQ(written("(/,' +++++ START PROGRAM KORVAT   VERSION = ',a11,a11)",
                      right_justified("7.6.0.81  "), Text<11>("04-Feb-2020")),
              "\n +++++ START PROGRAM KORVAT   VERSION =  7.6.0.81  04-Feb-2020\n");
}

TEST_F(RunFormats, OpenProblems) {
    EXPECT_EQ(written("(/,' **** SR/CONTRL  FILE PILE.O7 OPEN PROBLEM  IERR=',i5)", 0),
              "\n **** SR/CONTRL  FILE PILE.O7 OPEN PROBLEM  IERR=    0\n");
    EXPECT_EQ(written("(/,' **** SR/CONTRL  FILE KORVAT.INP OPEN PROBLEM  IERR=',i5)", 1),
              "\n **** SR/CONTRL  FILE KORVAT.INP OPEN PROBLEM  IERR=    1\n");
    EXPECT_EQ(written("(/,' **** SR/CONTRL  FILE KORVAT.LIS OPEN PROBLEM  IERR=',i5)", 1),
              "\n **** SR/CONTRL  FILE KORVAT.LIS OPEN PROBLEM  IERR=    1\n");
    EXPECT_EQ(written("(/,' **** SR/CONTRL  FILE LOAD.09 OPEN PROBLEM  IERR=',i5)", -1),
              "\n **** SR/CONTRL  FILE LOAD.09 OPEN PROBLEM  IERR=   -1\n");
}

TEST_F(RunFormats, FailedSteps) {
    EXPECT_EQ(written("(/,' **** SR/CONTRL  ERROR FROM SR/READPI  IERR=',i5)", 1),
              "\n **** SR/CONTRL  ERROR FROM SR/READPI  IERR=    1\n");
    EXPECT_EQ(written("(/,' **** SR/CONTRL  ERROR FROM SR/BUILD  IERR=',i5)", 1),
              "\n **** SR/CONTRL  ERROR FROM SR/BUILD  IERR=    1\n");
    EXPECT_EQ(written("(/,' **** SR/CONTRL  ERROR FROM SR/PRINT  IERR=',i5)", 12),
              "\n **** SR/CONTRL  ERROR FROM SR/PRINT  IERR=   12\n");
    EXPECT_EQ(written("(/,' **** SR/CONTRL  ERROR FROM SR/SAVE  IERR=',i5)", 2),
              "\n **** SR/CONTRL  ERROR FROM SR/SAVE  IERR=    2\n");
    EXPECT_EQ(written("(/,' **** SR/CONTRL  ERROR RETURN FROM SR/LOADS  IERR=',i5)", 99999),
              "\n **** SR/CONTRL  ERROR RETURN FROM SR/LOADS  IERR=99999\n");
}

TEST_F(RunFormats, ProgressLines) {
    EXPECT_EQ(written("(' +++++ INPUT FILE READ , LABEL LINE :',/,1x,a78)",
                      Text<80>(std::string(77, 'x') + "789")),
              " +++++ INPUT FILE READ , LABEL LINE :\n " + std::string(77, 'x') + "7\n");
    EXPECT_EQ(written("(' +++++ PILE GEOMETRY VALUES COMPUTED')"),
              " +++++ PILE GEOMETRY VALUES COMPUTED\n");
    EXPECT_EQ(written("(' +++++ RESULT FILE KORVAT.LIS HAS BEEN PRINTED')"),
              " +++++ RESULT FILE KORVAT.LIS HAS BEEN PRINTED\n");
    EXPECT_EQ(written("(' +++++ TOLVAN INPUT FILE PILE.07 HAS BEEN GENERATED')"),
              " +++++ TOLVAN INPUT FILE PILE.07 HAS BEEN GENERATED\n");
    EXPECT_EQ(written("(' +++++ NO LOAD VECTOR WAS GIVEN',/,' ')"),
              " +++++ NO LOAD VECTOR WAS GIVEN\n \n");
    EXPECT_EQ(written("(' +++++ TOLVAN INPUT FILE LOAD.09 HAS BEEN GENERATED',/,' ')"),
              " +++++ TOLVAN INPUT FILE LOAD.09 HAS BEEN GENERATED\n \n");
    EXPECT_EQ(written("(1x,a)", Text<50>("NORMAL EXIT FROM KORVAT")),
              " NORMAL EXIT FROM KORVAT" + blanks(27) + "\n");
}

TEST_F(RunFormats, ListingBanner) {
    EXPECT_EQ(
        written(
            "(' PROGRAM KORVAT   Pile Data Generator for Program TOLVAN',/,/,' VERSION :  ',a11,a11)",
            right_justified("7.6.0.81  "), Text<11>("04-Feb-2020")),
        " PROGRAM KORVAT   Pile Data Generator for Program TOLVAN\n\n"
        " VERSION :   7.6.0.81  04-Feb-2020\n");
}

TEST_F(RunFormats, SketchHeading) {
    EXPECT_EQ(
        written(
            "(/,1x,a80,/,/,/,' BELOW SKETCH SHOWS PILE HEADS (',i3.3,' - ',i3.3,') AND PILE TIPS (',i3.3,' - ',i3.3,')',/,/,' ')",
            Text<80>("Jetty"), 1, 12, 13, 24),
        "\n Jetty" + blanks(75) +
            "\n\n\n BELOW SKETCH SHOWS PILE HEADS (001 - 012) AND PILE TIPS (013 - 024)\n\n \n");
}

TEST_F(RunFormats, TimeStamps) {
    EXPECT_EQ(
        written(
            "(/,' THIS RUN WAS STARTED :  ',2i1,'-',a3,'-',i4,'  AT  ',2i1,':',2i1,':',2i1,' HOURS')",
            0, 7, characters("MAR"), 2024, 0, 9, 0, 5, 0, 3),
        "\n THIS RUN WAS STARTED :  07-MAR-2024  AT  09:05:03 HOURS\n");
    EXPECT_EQ(
        written(
            "(/,' THIS RUN WAS TERMINATED :  ',2i1,'-',a3,'-',i4,'  AT',2x,2i1,':',2i1,':',2i1,' HOURS')",
            3, 1, characters("DEC"), 1999, 2, 3, 5, 9, 5, 8),
        "\n THIS RUN WAS TERMINATED :  31-DEC-1999  AT  23:59:58 HOURS\n");
}

TEST_F(RunFormats, IdentificationPage) {
    EXPECT_EQ(written("(a)", characters("  ***")), "  ***\n");
    EXPECT_EQ(fortran::edited(60, "(30(a,1x))", characters("K"), characters("o"), characters("r")),
              "K o r" + blanks(55));
    EXPECT_EQ(fortran::edited(10, "(i10.9)", -857888068), "-857888068");
    EXPECT_EQ(fortran::edited(10, "(i10.10)", 857888068), "0857888068");
}

TEST_F(RunFormats, Echo) {
    EXPECT_EQ(written("('1',/,10x,'ECHO PRINT OF INPUT DATA TO PROGRAM \"KORVAT\"')"),
              "1\n          ECHO PRINT OF INPUT DATA TO PROGRAM \"KORVAT\"\n");
    EXPECT_EQ(written("(/,10x,9('0'),10('1'),10('2'),10('3'),10('4'),10('5'),10('6'),10('7'),'8')"),
              "\n          00000000011111111112222222222333333333344444444445555555555"
              "666666666677777777778\n");
    EXPECT_EQ(written("(10x,8('1234567890'),/)"),
              "          1234567890123456789012345678901234567890"
              "1234567890123456789012345678901234567890\n\n");
    EXPECT_EQ(written("(/,' **** ERROR IN SR/ECHO  NFR,NFW,NOW=',3i5)", 11, 13, 1),
              "\n **** ERROR IN SR/ECHO  NFR,NFW,NOW=   11   13    1\n");
    EXPECT_EQ(written("(i5,'----',1x,a80)", 12, Text<80>("1.0 2.0")),
              "   12---- 1.0 2.0" + blanks(73) + "\n");
}

TEST_F(RunFormats, Revision) {
    EXPECT_EQ(written("(/,' Input data is for revision 4 : 2006-06-11',/,' ')"),
              "\n Input data is for revision 4 : 2006-06-11\n \n");
    EXPECT_EQ(written("(/,' Input data is for revision 5 : 2009-09-01',/,' ')"),
              "\n Input data is for revision 5 : 2009-09-01\n \n");
    EXPECT_EQ(
        written("(/,' **** Error message from SR/GetRevision: End-of-file at',' unit=',i3)", 12),
        "\n **** Error message from SR/GetRevision: End-of-file at unit= 12\n");
    EXPECT_EQ(
        written(
            "(/,' **** Error message from SR/GetRevision:',/,' Non-accepted date: Year-Month-Day=',i5.4,'-',i2.2,'-',i2.2,/,1x,a80)",
            2006, 13, 1, Text<80>("KORVAT Version: 2006-13-01")),
        "\n **** Error message from SR/GetRevision:\n"
        " Non-accepted date: Year-Month-Day= 2006-13-01\n KORVAT Version: 2006-13-01" +
            blanks(54) + "\n");
    EXPECT_EQ(
        written(
            "(/,' **** Error message from SR/GetRevision:',/,' The given date is not a valid revision date',/,1x,a80,/,' Valid dates are:',/,' Revision 4, 2006-06-11',/,' Revision 5, 2009-09-01')",
            Text<80>("KORVAT Version: 2010-01-01")),
        "\n **** Error message from SR/GetRevision:\n"
        " The given date is not a valid revision date\n KORVAT Version: 2010-01-01" +
            blanks(54) + "\n Valid dates are:\n Revision 4, 2006-06-11\n Revision 5, 2009-09-01\n");
}

TEST_F(RunFormats, LastLinesRead) {
    EXPECT_EQ(
        written(
            "(/,' The ',i2,' last lines read from the temporary',' input file are shown below.')",
            7),
        "\n The  7 last lines read from the temporary input file are shown below.\n");
    EXPECT_EQ(written("(' Error occurred while reading the bottom line :',/,' ')"),
              " Error occurred while reading the bottom line :\n \n");
    EXPECT_EQ(written("(' An end-of-file was encountered at the bottom line :',/,' ')"),
              " An end-of-file was encountered at the bottom line :\n \n");
    EXPECT_EQ(written("(' The error was detected by SR/LINERD :',/,' ')"),
              " The error was detected by SR/LINERD :\n \n");
    EXPECT_EQ(written("(' Non-accepted value(s) exist in the input :',/,' ')"),
              " Non-accepted value(s) exist in the input :\n \n");
    EXPECT_EQ(written("(i5,' : ',a70)", 31, characters("1 2 3")),
              "   31 : 1 2 3" + blanks(65) + "\n");
    EXPECT_EQ(written("(i5,' : ',a70)", 32), "   32 : \n"); // the item is missing
}

TEST_F(RunFormats, RecordReader) {
    EXPECT_EQ(written("(6x,a)", characters("123456789")), "      123456789\n");
    EXPECT_EQ(written("(a,/)", characters(" text")), " text\n\n");
    EXPECT_EQ(written("(1x,2a)", characters("ab"), characters("   ^")), " ab   ^\n");
    EXPECT_EQ(written("(/,/)"), "\n\n\n");
    EXPECT_EQ(written("(/,' **** SR/READ : NO NUMBERS FOUND AT LOCATION =',i5)", 215),
              "\n **** SR/READ : NO NUMBERS FOUND AT LOCATION =  215\n");
    EXPECT_EQ(
        written(
            "(/,' **** SR/READ : NO NUMBERS FOUND AT LOCATION =',i5,', ON A ''PHYSICAL CONTINUATION',/,16x,'LINE.''')",
            301),
        "\n **** SR/READ : NO NUMBERS FOUND AT LOCATION =  301, ON A 'PHYSICAL CONTINUATION\n"
        "                LINE.'\n");
    EXPECT_EQ(
        written(
            "(/,' **** SR/READ : NUMBER OF VARIABLES WHICH SHOULD BE ON ','LINE:',i5,',',/,'                WAS NOT EQUAL TO NUMBER OF INPUT ','VARIABLES FOUND:',i5,',',/,'                AT LOCATION = ',i5)",
            9, 10, 302),
        "\n **** SR/READ : NUMBER OF VARIABLES WHICH SHOULD BE ON LINE:    9,\n"
        "                WAS NOT EQUAL TO NUMBER OF INPUT VARIABLES FOUND:   10,\n"
        "                AT LOCATION =   302\n");
    EXPECT_EQ(written("(/,' **** SR/READ : END-OF-FILE AT LOCATION = ',i5)", 1101),
              "\n **** SR/READ : END-OF-FILE AT LOCATION =  1101\n");
    EXPECT_EQ(written("(/,' **** SR/READ : FORMAT ERROR AT LOCATION =',i5)", 1101),
              "\n **** SR/READ : FORMAT ERROR AT LOCATION = 1101\n");
    EXPECT_EQ(
        written(
            "(/,' **** SR/READ : LENGTH OF ONE LOGICAL INPUT LINE ','LONGER THAN:',i5,' CHARACTERS.',/,'                AT LOCATION = ',i5)",
            640, 900),
        "\n **** SR/READ : LENGTH OF ONE LOGICAL INPUT LINE LONGER THAN:  640 CHARACTERS.\n"
        "                AT LOCATION =   900\n");
}

TEST_F(RunFormats, PlotFile) {
    EXPECT_EQ(written("(a80,/,/,i9,'  Number of piles')", Text<80>("Jetty"), 4),
              "Jetty" + blanks(75) + "\n\n        4  Number of piles\n");
    EXPECT_EQ(
        written(
            "(/,i4,i4,2f7.3,i4,'  Pile,nodes,diam,wall,''material (1=steel 2=concrete)',/,/,'  Node     X         Y         Z')",
            1, 21, 1.2, 0.05, 2),
        "\n   1  21  1.200  0.050   2  Pile,nodes,diam,wall,'material (1=steel 2=concrete)\n\n"
        "  Node     X         Y         Z\n");
    EXPECT_EQ(written("(i5,3f10.3)", 3, -1.5, 0.0, 12.3456),
              "    3    -1.500     0.000    12.346\n");
}

TEST_F(RunFormats, SpecialNodeValues) {
    EXPECT_EQ(
        written("(/,' **** SPECIAL NODE VALUES PROBLEM',/,' PILE, NODE, MAX ALLOWED NODE =',3i5)",
                2, 22, 21),
        "\n **** SPECIAL NODE VALUES PROBLEM\n PILE, NODE, MAX ALLOWED NODE =    2   22   21\n");
    EXPECT_EQ(
        written(
            "(/,' **** SPECIAL NODE VALUES PROBLEM',/,' SOIL DISPL WERE GIVEN AT DUMMY PILE =',i5,/,3e12.4)",
            3, 0.5, -0.025, 0.0),
        "\n **** SPECIAL NODE VALUES PROBLEM\n SOIL DISPL WERE GIVEN AT DUMMY PILE =    3\n"
        "  0.5000E+00 -0.2500E-01  0.0000E+00\n");
}

} // namespace
} // namespace korvat::test
