// The small BASIC by tables: programs and what they print.
#include <algorithm>
#include <sstream>

#include "tests/simulator/board_bench.h"

namespace {

// Programs and what they print, with "|" for line ends; an error's place is left out.
const char kRows[] = R"(
PRINT 1;-2;"a";3.5;1/3;2^40;1e20;0.1+0.2 ->  1-2a 3.5 0.3333333333 1099511627776 1e+20 0.3|
PRINT "a","b":PRINT 1,2 -> a       b| 1       2|
PRINT "x";:PRINT:? 5 -> x| 5|
PRINT &HFF;&B101;&O17;1.5E2;.25 ->  255 5 15 150 0.25|
PRINT 2+3*4^2/8-1;-2^2;2^-1;(1+2)*3 ->  7-4 0.5 9|
PRINT 7 MOD 3;-7\2;7\2;1<<4;256>>2 ->  1-3 3 16 64|
PRINT 1<2;2<=1;3<>3;2=2;5>=5;NOT 0;NOT 5 ->  1 0 0 1 1 1 0|
PRINT 6 AND 3;6 OR 3;6 XOR 3;1<2 AND 2<3;INV 0 ->  2 7 5 1-1|
PRINT "a"+"b"="ab";"a"<"b";"b">"abc" ->  1 1 1|
PRINT LEN("four");ASC("A");VAL("12.5x");INT(-1.5);ABS(-3);SGN(-2);FIX(-1.5);CINT(2.5))"
                     R"( ->  4 65 12.5-2 3-1-1 3|
PRINT LEFT$("abcd",2);RIGHT$("abcd",2);MID$("abcd",2,2);MID$("abcd",3) -> abcdbccd|
PRINT CHR$(72)+STR$(5)+STR$(-1.5)+UCASE$("x")+LCASE$("Y")+HEX$(255,4)+BIN$(5)+OCT$(8))"
                     R"( -> H5-1.5Xy00FF10110|
PRINT STR$(3,5);STR$(3.14159,3,2);STR$(7,3,0,"0");SPACE$(2);STRING$(3,"=")+STRING$(2,65))"
                     R"( ->     3  3.14007  ===AA|
PRINT INSTR("hello","l");INSTR(4,"hello","l");INSTR("a","z") ->  3 4 0|
PRINT SIN(0);COS(0);TAN(0);SQR(16);EXP(0);LOG(1);PI;DEG(PI);RAD(180)-PI;MAX(1,9,3);MIN(4,2))"
                     R"( ->  0 1 0 4 1 0 3.141592654 180 0 9 2|
PRINT RND<1 AND RND>=0;RND(1)<1;MM.DEVICE$;MM.VER;INKEY$;"x";TAB(20);"y" ->  1 1PicoMite 6.03x y|
LET a=5:b$="t":a%=2.7:PRINT a;b$;a%;c;d$;"!" ->  5t 3 0!|
DIM a(3),n$(2),m(2,2):a(3)=7:n$(1)="q":m(2,1)=5:PRINT a(3);n$(1);m(2,1);m(1,2) ->  7q 5 0|
DIM STRING s LENGTH 5,t="k":s="ab":PRINT s+t -> abk|
DIM x=5:DIM STRING q="w":PRINT x;q ->  5w|
OPTION EXPLICIT|DIM a|a=1|b=2 -> Error : B is not declared|
a=1:a$="two":PRINT a;a$ ->  1two|
FOR i=1 TO 3:PRINT i;:NEXT:PRINT i ->  1 2 3 4|
FOR i=3 TO 1 STEP -1:FOR j=1 TO 2:PRINT i*j;:NEXT j,i ->  3 6 2 4 1 2
FOR i=5 TO 1:PRINT "never":FOR j=1 TO 2:NEXT:NEXT:PRINT "past" -> past|
DO|i=i+1|IF i=3 THEN EXIT DO|LOOP|PRINT i ->  3|
DO WHILE i<3:i=i+1:LOOP:PRINT i:DO UNTIL 1:PRINT "never":LOOP:PRINT "past" ->  3|past|
DO:i=i+1:LOOP UNTIL i>=4:PRINT i:DO:i=i-1:LOOP WHILE i>1:PRINT i ->  4| 1|
FOR i=1 TO 9|IF i=4 THEN EXIT FOR|NEXT|PRINT i ->  4|
IF 1 THEN PRINT "y" ELSE PRINT "n"|IF 0 THEN PRINT "y" ELSE PRINT "n" -> y|n|
IF 0 THEN PRINT 1:PRINT 2|PRINT 3 ->  3|
IF 0 THEN IF 1 THEN PRINT 1 ELSE PRINT 2|IF 1 THEN IF 0 THEN PRINT 3 ELSE PRINT 4 ->  4|
FOR i=1 TO 4|IF i=1 THEN|PRINT "one"|ELSEIF i=2 THEN|PRINT "two"|)"
                     R"(ELSE IF i=3 THEN|PRINT "three"|ELSE|PRINT "more"|END IF|NEXT)"
                     R"( -> one|two|three|more|
IF 0 THEN ' block|IF 1 THEN|PRINT 1|ENDIF|PRINT 2|ELSE|PRINT 3|ENDIF ->  3|
10 PRINT 1|20 GOTO 40|30 PRINT 2|40 IF 1 THEN 60|50 PRINT 3|60 PRINT 4 ->  1| 4|
GOTO skip|PRINT 1|skip: PRINT 2|IF 1 GOTO out|PRINT 3|out: ->  2|
GOSUB s:PRINT "back"|IF 1 THEN GOSUB s|END|s:|PRINT "sub"|RETURN -> sub|back|sub|
x=1:y=2|s 5,"t"|s(6,"u"):PRINT x;y|END|SUB s(x,a$)|LOCAL y=9|PRINT x;a$;y|END SUB)"
                     R"( ->  5t 9| 6u 9| 1 2|
f 3|SUB f n|IF n=0 THEN EXIT SUB|PRINT n;|f n-1|END SUB ->  3 2 1
REM PRINT 1: PRINT 2|' no|PRINT "'" ' yes|PRINT 5' -> '| 5|
PRINT 1:END:PRINT 2 ->  1|
t=TIMER:PAUSE 150:PRINT TIMER-t>=150 AND TIMER-t<155:TIMER=0:PRINT TIMER<5 ->  1| 1|
PRINT 1/0 -> Error : Divide by zero|
PRINT 5 MOD 0 -> Error : Divide by zero|
a="x" -> Error : Expected a number|
a$=1 -> Error : Expected a string|
PRINT "a"+1 -> Error : Expected a string|
PRINT LEN(5) -> Error : Expected a string|
PRINT (1 -> Error : Expected closing bracket|
PRINT "open -> Error : Unterminated string|
PRINT LEFT$("a") -> Error : Argument count|
NEXT -> Error : Cannot find a matching FOR|
GOSUB s:NEXT|END|s:|FOR i=1 TO 2:RETURN -> Error : Cannot find a matching FOR|
LOOP -> Error : LOOP without a matching DO|
RETURN -> Error : Nothing to return to|
GOTO nowhere -> Error : Cannot find label|
FOR i=1 TO 0 -> Error : FOR without a matching NEXT|
IF 0 THEN -> Error : IF without a matching ENDIF|
DIM a(5):a(6)=1 -> Error : Index out of bounds|
DIM a(5):DIM a(5) -> Error : A already declared|
DIM a(16384) -> Error : Not enough memory|
a$=SPACE$(200)+SPACE$(56) -> Error : String too long|
PRINT CHR$(256) -> Error : 256 is invalid (valid is 0 to 255)|
PRINT 10^400 -> Error : Number is not valid|
PRINT SQR(-1) -> Error : Negative argument|
PAUSE -1 -> Error : Number out of bounds|
DO:GOSUB x|x:|LOOP -> Error : LOOP without a matching DO|
x:|GOSUB x -> Error : Too many nested GOSUB|
s|SUB s|s|END SUB -> Error : Too many nested SUB|
DO|i=i+1|LOOP UNTIL i=5|DO|DO|GOTO y|y:|x:|DO|GOTO x -> Error : Too many nested loops|
12 =5 -> Error : Unknown command|
PRINT 1 2 ) -> Error : Syntax|
)";

std::string RunLines(BoardBench& bench, std::string program) {
    std::replace(program.begin(), program.end(), '|', '\r');
    std::string out = bench.RunText(program);
    out.erase(std::remove(out.begin(), out.end(), '\r'), out.end());
    std::replace(out.begin(), out.end(), '\n', '|');
    const size_t error = out.find("Error :");
    return error == out.npos ? out : out.substr(error);
}

}  // namespace

TEST(Basic, ProgramsPrintWhatTheyShould) {
    BoardBench bench;
    std::istringstream rows(kRows + 1);
    for (std::string row; std::getline(rows, row);) {
        const size_t end = row.find(" -> ");
        EXPECT_EQ(RunLines(bench, row.substr(0, end)), row.substr(end + 4)) << row;
    }
}

TEST(Basic, InputAndKeys) {
    BoardBench bench;
    bench.Say("AUTOSAVE\rINPUT \"Name\";n$:INPUT \"Two: \",a,b\rPRINT n$;a+b\r\x1a");
    EXPECT_EQ(bench.Type("RUN"), "Name? ");
    EXPECT_EQ(bench.Say("Anx\bn\r\n"), "Anx\b \bn\r\nTwo: ");  // the LF is skipped
    EXPECT_EQ(bench.Type("4, 5"), "Ann 9\r\n" + kLoud603);
    bench.Say("AUTOSAVE\rDO:k$=INKEY$:IF k$<>\"\" THEN PRINT ASC(k$);\rLOOP\r\x1a");
    bench.Follow({{"RUN\r", 50, "RUN\r\n"},
                  {"a\x1b[A\r", 50, " 97 128 13"},
                  {"\x03", 50, kLead603 + "\r\n" + kQuiet}});
}

TEST(Basic, ProgramsRunInBoardTime) {
    BoardBench bench;
    bench.Say("AUTOSAVE\rPRINT 1:PAUSE 1000:PRINT 2\r\x1a");
    EXPECT_EQ(bench.Type("RUN", 999), " 1\r\n");
    EXPECT_EQ(bench.Wait(1), " 2\r\n" + kLoud603);
    // 40 statements a millisecond, also when the clock is read seldom.
    bench.Say("AUTOSAVE\rDO:i=i+1:LOOP UNTIL i=20000\rPRINT \"end\"\r\x1a");
    bench.Follow({{"RUN\r", 980, "RUN\r\n"}, {"", 40, "end\r\n" + kLoud603}});
}
