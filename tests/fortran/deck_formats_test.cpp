// Every FORMAT of the input file reader and of the geometry builder, once, with ordinary values.
#include "runtime_fixture.hpp"

namespace korvat::test {
namespace {

using fortran::characters;

class DeckFormats : public RuntimeTest {};

TEST_F(DeckFormats, Termination) {
    EXPECT_EQ(written("(/,' **** Error termination of KORVAT')"),
              "\n **** Error termination of KORVAT\n");
    EXPECT_EQ(written("(/,' **** SR/READPI : Program revision number > 5')"),
              "\n **** SR/READPI : Program revision number > 5\n");
}

TEST_F(DeckFormats, SectionReader) {
    EXPECT_EQ(written("(/,' **** SR/READPI : END-OF-FILE AT LOCATION = ',i5)", 300),
              "\n **** SR/READPI : END-OF-FILE AT LOCATION =   300\n");
    EXPECT_EQ(written("(/,' **** SR/READPI : FORMAT ERROR AT LOCATION =',i5)", 300),
              "\n **** SR/READPI : FORMAT ERROR AT LOCATION =  300\n");
    EXPECT_EQ(written("(/,' **** SR/READPI : ERROR FROM SR/LINERD AT LOCATION = ',i5)", 1201),
              "\n **** SR/READPI : ERROR FROM SR/LINERD AT LOCATION =  1201\n");
    EXPECT_EQ(written("(/,a44,'\"CONTROL\"',/,1x,a80)",
                      characters(" **** SR/READPI : NO BLANK LINE AT START OF "),
                      characters("heading")),
              "\n **** SR/READPI : NO BLANK LINE AT START OF \"CONTROL\"\n heading" +
                  std::string(73, ' ') + "\n");
}

TEST_F(DeckFormats, Control) {
    EXPECT_EQ(written("(/,' **** SR/READPI : NUMPIL PROBLEM  NUMPIL,MAX=',2i5)", 201, 200),
              "\n **** SR/READPI : NUMPIL PROBLEM  NUMPIL,MAX=  201  200\n");
    EXPECT_EQ(written("(/,' **** SR/READPI : NUMCRS PROBLEM  NUMCRS,MAX=',2i5)", 0, 200),
              "\n **** SR/READPI : NUMCRS PROBLEM  NUMCRS,MAX=    0  200\n");
    EXPECT_EQ(written("(/,' **** SR/READPI : NUMMAT PROBLEM  NUMMAT,MAX=',2i5)", 21, 20),
              "\n **** SR/READPI : NUMMAT PROBLEM  NUMMAT,MAX=   21   20\n");
    EXPECT_EQ(written("(/,' **** SR/READPI : NUMSEG PROBLEM  NUMSEG,MAX=',2i5)", -7, 1000),
              "\n **** SR/READPI : NUMSEG PROBLEM  NUMSEG,MAX=   -7 1000\n");
    EXPECT_EQ(written("(/,' WARNING FROM SR/READPI :  JPRINT=',i5)", 3),
              "\n WARNING FROM SR/READPI :  JPRINT=    3\n");
    EXPECT_EQ(written("(/,' WARNING FROM SR/READPI :  JECHO=',i5)", -1),
              "\n WARNING FROM SR/READPI :  JECHO=   -1\n");
}

TEST_F(DeckFormats, Materials) {
    EXPECT_EQ(written("(/,' WARNING FROM SR/READPI :  N,EMOD,GMOD=',i5,2e12.4)", 1, 2.1e8, 2.0e8),
              "\n WARNING FROM SR/READPI :  N,EMOD,GMOD=    1  0.2100E+09  0.2000E+09\n");
    EXPECT_EQ(
        written("(/,' WARNING FROM SR/READPI :  N,EMOD,SIGYLD=',i5,2e12.4)", 20, 2.1e8, 3.55e5),
        "\n WARNING FROM SR/READPI :  N,EMOD,SIGYLD=   20  0.2100E+09  0.3550E+06\n");
    EXPECT_EQ(written("(/,' WARNING FROM SR/READPI :  N,EPSTMP=',i5,e12.4)", 2, 0.0125),
              "\n WARNING FROM SR/READPI :  N,EPSTMP=    2  0.1250E-01\n");
    EXPECT_EQ(written("(/,' **** SR/READPI : MATERIAL ERROR  MAT,IERR=',2i5)", 1, 6),
              "\n **** SR/READPI : MATERIAL ERROR  MAT,IERR=    1    6\n");
    EXPECT_EQ(written("(/,' **** SR/READPI : MATERIAL TYPES SEQUENCE ERROR',2i5)", 2, 3),
              "\n **** SR/READPI : MATERIAL TYPES SEQUENCE ERROR    2    3\n");
}

TEST_F(DeckFormats, CrossSections) {
    EXPECT_EQ(written("(/,' **** SR/READPI : CROSS SECTION SEQUENCE ERROR',3i5)", 3, 2, 5),
              "\n **** SR/READPI : CROSS SECTION SEQUENCE ERROR    3    2    5\n");
    EXPECT_EQ(written("(/,' **** SR/READPI : FIRST CROSS SECTION MUST BE 1')"),
              "\n **** SR/READPI : FIRST CROSS SECTION MUST BE 1\n");
    EXPECT_EQ(written("(/,' **** SR/READPI : CROSS SECTION ERROR  NUM,IERR=',2i5)", 12, 4),
              "\n **** SR/READPI : CROSS SECTION ERROR  NUM,IERR=   12    4\n");
}

TEST_F(DeckFormats, Segments) {
    EXPECT_EQ(written("(/,' **** SR/READPI : SEGMENT ERROR  NUM,IERR=',2i5)", 1000, 7),
              "\n **** SR/READPI : SEGMENT ERROR  NUM,IERR= 1000    7\n");
    EXPECT_EQ(written("(/,' **** SR/READPI : SEGMENT SEQUENCE ERROR',2i5)", 2, 1),
              "\n **** SR/READPI : SEGMENT SEQUENCE ERROR    2    1\n");
    EXPECT_EQ(written("(/,' **** SR/READPI : PILE SEGMENT TABLE  NP,SEG,MAX=',3i5)", 1, 21, 20),
              "\n **** SR/READPI : PILE SEGMENT TABLE  NP,SEG,MAX=    1   21   20\n");
    EXPECT_EQ(written("(/,' **** SR/READPI : PILE SEGMENT TABLE  NP,I,SEG(I)=',3i5)", 1, 2, 0),
              "\n **** SR/READPI : PILE SEGMENT TABLE  NP,I,SEG(I)=    1    2    0\n");
    EXPECT_EQ(
        written("(/,' **** SR/READPI : PILE',i4.3,' EXPECTED IN SEGMENT ','TABLE , NOT',i4.3)", 7,
                12),
        "\n **** SR/READPI : PILE 007 EXPECTED IN SEGMENT TABLE , NOT 012\n");
}

TEST_F(DeckFormats, Geometry) {
    EXPECT_EQ(written("(/,' **** SR/READPI : FIRST PILE IN GEOMET TABLE NOT NO. 1')"),
              "\n **** SR/READPI : FIRST PILE IN GEOMET TABLE NOT NO. 1\n");
    EXPECT_EQ(written("(/,' **** SR/READPI : PILE GEOMETRY SEQUENCE ERROR',2i5)", 4, 3),
              "\n **** SR/READPI : PILE GEOMETRY SEQUENCE ERROR    4    3\n");
    EXPECT_EQ(
        written(
            "(/,' **** SR/READPI : Pile tip is located above pile head',/,' Co-ordinate system to be used has +Z pointing downwards',/,' Pile,z-head,ztip=',i5,2f10.3)",
            3, -5.25, -60.0),
        "\n **** SR/READPI : Pile tip is located above pile head\n"
        " Co-ordinate system to be used has +Z pointing downwards\n"
        " Pile,z-head,ztip=    3    -5.250   -60.000\n");
    EXPECT_EQ(written("(/,' **** SR/READPI : PILE,NGEN,NSYM=',3i5)", 2, 1, 3),
              "\n **** SR/READPI : PILE,NGEN,NSYM=    2    1    3\n");
    EXPECT_EQ(written("(/,' **** SR/READPI : OMITTED PILES  NGEN/NSYM NOT ZERO',3i5)", 4, 1, 0),
              "\n **** SR/READPI : OMITTED PILES  NGEN/NSYM NOT ZERO    4    1    0\n");
}

TEST_F(DeckFormats, NodeData) {
    EXPECT_EQ(
        written("(/,' **** SR/READPI : PILE TIP/FIX TABLE  NP1,NP2,ITIP,','IFIX,IERR=',/,5i5)", 1,
                200, -3, 0, 5),
        "\n **** SR/READPI : PILE TIP/FIX TABLE  NP1,NP2,ITIP,IFIX,IERR=\n"
        "    1  200   -3    0    5\n");
    EXPECT_EQ(
        written("(/,' **** SR/READPI : SPEC NODE VALUES  NOW,NP1,NP2,ND1,',',ND2,CODE=',/,6i5)",
                499, 1, 2, 3, 451, 4),
        "\n **** SR/READPI : SPEC NODE VALUES  NOW,NP1,NP2,ND1,,ND2,CODE=\n"
        "  499    1    2    3  451    4\n");
    EXPECT_EQ(written("(/,' **** SR/READPI : SPEC NODE VALUES  NOW,VAL=',i5,e12.4)", 1, -1.0e-3),
              "\n **** SR/READPI : SPEC NODE VALUES  NOW,VAL=    1 -0.1000E-02\n");
    EXPECT_EQ(written("(/,' **** SR/READPI : SPEC NODE VALUES  NOW,MAX=',2i5)", 501, 500),
              "\n **** SR/READPI : SPEC NODE VALUES  NOW,MAX=  501  500\n");
}

TEST_F(DeckFormats, Build) {
    EXPECT_EQ(written("(/,' **** SR/BUILD : TIP CODE ERROR  NP,ND,ICTIP=',3i5)", 1, 21, 0),
              "\n **** SR/BUILD : TIP CODE ERROR  NP,ND,ICTIP=    1   21    0\n");
    EXPECT_EQ(
        written("(/,' **** SR/BUILD : PILE ',i3.3,' FIXED TO ',i3.3,' , THIS IS NOT A DUMMY PILE')",
                2, 11),
        "\n **** SR/BUILD : PILE 002 FIXED TO 011 , THIS IS NOT A DUMMY PILE\n");
    EXPECT_EQ(written("(/,' **** SR/BUILD : Too many nodes on pile NP',/,' NP,ND,MAX =',3i5)", 1,
                      452, 451),
              "\n **** SR/BUILD : Too many nodes on pile NP\n NP,ND,MAX =    1  452  451\n");
    EXPECT_EQ(
        written("(/,' **** SR/BUILD : PILE LENGTH ERROR  NP,L1,L2=',i5,2f12.4)", 1, 60.0, 59.5),
        "\n **** SR/BUILD : PILE LENGTH ERROR  NP,L1,L2=    1     60.0000     59.5000\n");
}

} // namespace
} // namespace korvat::test
