// The small BASIC by tables: programs and what they print.
#include <algorithm>
#include <sstream>

#include "tests/simulator/board_bench.h"

namespace {

// Programs and what they print, with "|" for line ends; an error's place is left out.
const char kRows[] = R"(
PRINT 1;-2;"a";3.5;1/3;2^40;1e20;0.1+0.2;.25 ->  1-2a 3.5 0.3333333333 1099511627776 1e+20 0.3 0.25|
PRINT "a","b":PRINT 1,2:PRINT "x";:PRINT:? 5 -> a       b| 1       2|x| 5|
PRINT 2+3*4^2/8-1;-2^2;2^-1;(1+2)*3;7 MOD 3;-7\2;1<2 AND 2<3;NOT 0;6 OR 1 ->  7-4 0.5 9 1-3 1 1 7|
PRINT 1<2;2<=1;3<>3;2=2;5>=5;"a"+"b"="ab";"a"<"b";"b">"abc" ->  1 0 0 1 1 1 1 1|
PRINT LEN("four");ASC("A");VAL("12.5x");INT(-1.5);ABS(-3);SQR(16);COS(0);SIN(RAD(90)))"
                     R"( ->  4 65 12.5-2 3 4 1 1|
PRINT LEFT$("abcd",2);RIGHT$("abcd",2);MID$("abcd",2,2);MID$("abcd",3);CHR$(72);UCASE$("x"))"
                     R"( -> abcdbccdHX|
LET a=5:b$="t":a%=2.7:PRINT a;b$;a%;c;d$;"!" ->  5t 3 0!|
DIM a(3),n$(2),x=5:DIM STRING s(2),q="w":a(3)=7:n$(1)="q":s(2)="z":PRINT a(3);n$(1);s(2);x;q)"
                     R"( ->  7qz 5w|
FOR i=3 TO 1 STEP -1:FOR j=1 TO 2:PRINT i*j;:NEXT j,i:PRINT i ->  3 6 2 4 1 2 0|
DO WHILE i<3:i=i+1:LOOP:PRINT i:DO UNTIL 1:PRINT "never":LOOP:PRINT "past" ->  3|past|
DO:i=i+1:LOOP UNTIL i>=4:PRINT i:DO:i=i-1:LOOP WHILE i>1:PRINT i ->  4| 1|
IF 0 THEN IF 1 THEN PRINT 1 ELSE PRINT 2|IF 1 THEN IF 0 THEN PRINT "ELSE" ELSE PRINT 4 ->  4|
FOR i=1 TO 4|IF i=1 THEN|PRINT "one"|ELSEIF i=2 THEN|PRINT "two"|)"
                     R"(ELSE IF i=3 THEN|PRINT "three"|ELSE|PRINT "more"|END IF|NEXT)"
                     R"( -> one|two|three|more|
10 PRINT 1|20 GOTO 40|30 PRINT 2|40 IF 1 THEN 60|50 PRINT 3|60 PRINT 4 ->  1| 4|
REM PRINT 1: PRINT 2|' no|PRINT "'" ' yes|PRINT 5'|END:PRINT 6 -> '| 5|
t=TIMER:PAUSE 150:PRINT TIMER-t>=150 AND TIMER-t<155:TIMER=0:PRINT TIMER<5 ->  1| 1|
PRINT 1/0 -> Error : Divide by zero|
NEXT -> Error : Cannot find a matching FOR|
DIM a(5):a(6)=1 -> Error : Index out of bounds|
a$=SPACE$(200)+SPACE$(56) -> Error : String too long|
DO|i=i+1|LOOP UNTIL i=5|DO|DO|GOTO y|y:|x:|DO|GOTO x -> Error : Too many nested loops|
GOSUB s -> Error : GOSUB is not in the simulated board|
)";

TEST(Basic, ProgramsPrintWhatTheyShould) {
    BoardBench bench;
    std::istringstream rows(kRows + 1);
    for (std::string row, told; std::getline(rows, row);) {
        const size_t end = row.find(" -> ");
        std::string program = row.substr(0, end);
        std::replace(program.begin(), program.end(), '|', '\r');
        bench.Say("AUTOSAVE\r" + program + "\x1a");
        told.clear();
        for (const char c : bench.Type("RUN", 30000))
            told += c == '\n' ? "|" : std::string(c != '\r', c);
        told.erase(told.rfind("\x1b[?25h"));
        const size_t error = std::min(told.find("Error :"), told.size());
        EXPECT_EQ(error < told.size() ? told.substr(error) : told, row.substr(end + 4)) << row;
    }
}

}  // namespace
