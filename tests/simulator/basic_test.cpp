// The small BASIC by tables: programs and what they print.
#include "tests/simulator/board_bench.h"

namespace {

// Programs with "|" for line ends, and what they print.
const char kPrograms[] = R"(
PRINT 1;-2;"a";3.5;1/3;2^40;1e20;0.1+0.2;.25 ->  1-2a 3.5 0.3333333333 1099511627776 1e+20 0.3 0.25#
PRINT "a","b":PRINT 1,2:PRINT "x";:PRINT:? 5 -> a       b# 1       2#x# 5#
PRINT 2+3*4^2/8-1;-2^2;2^-1;(1+2)*3;7 MOD 3;-7\2;1<2 AND 2<3;NOT 0;6 OR 1 ->  7-4 0.5 9 1-3 1 1 7#
PRINT 1<2;2<=1;3<>3;2=2;5>=5;"a"+"b"="ab";"a"<"b";"b">"abc" ->  1 0 0 1 1 1 1 1#
PRINT INT(-1.5);ABS(-3);SQR(16);RIGHT$("abcd",2);LEFT$("ab",1);MID$("abcd",2,2);MID$("a",9);CHR$(72) -> -2 3 4cdabcH#
PRINT STR$(5,4);RND=RND ->    5 0#
LET a=5:b$="t":a%=2.7:PRINT a;b$;a%;c;d$;"!" ->  5t 3 0!#
DIM a(3),n$(2),x:a(3)=7:n$(1)="q":PRINT a(3);n$(1);n$(2);x ->  7q 0#
FOR i=3 TO 1 STEP -1:FOR j=1 TO 2:PRINT i*j;:NEXT j,i:PRINT i ->  3 6 2 4 1 2 0#
FOR i=2 TO 1:PRINT "never":FOR j=1 TO 9:NEXT j:NEXT i:PRINT "past" -> past#
DO WHILE i<3:i=i+1:LOOP:PRINT i:DO UNTIL 1:PRINT "LOOP":LOOP UNTIL a$=":":PRINT "past" ->  3#past#
DO:i=i+1:LOOP UNTIL i>=4:PRINT i:DO:i=i-1:LOOP WHILE i>1:PRINT i ->  4# 1#
IF 0 THEN IF 1 THEN PRINT 1 ELSE PRINT 2|IF 1 THEN IF 0 THEN PRINT "ELSE" ELSE PRINT 4 ->  4#
FOR i=1 TO 3|IF i=1 THEN|?1|ELSEIF i=2 THEN|?2|ELSE|IF 0 THEN|?4|ENDIF|?3|END IF|NEXT ->  1# 2# 3#
10 PRINT 1|20 GOTO 40|30 PRINT 2|40 IF 1 THEN 60|50 PRINT 3|60 GOTO e|CLS:|e:PRINT 5 ->  1# 5#
REM PRINT 1: PRINT 2|' no|PRINT "'" ' yes|PRINT 5'|END:PRINT 6 -> '# 5#
t=TIMER:PAUSE 150:PRINT TIMER-t>=150 AND TIMER-t<155:TIMER=0:PRINT TIMER<5 ->  1# 1#
x=1|print 1/0 -> [2] Print 1/0#Error : Divide by zero#
PRINT LEN -> [1] Print Len#Error : Syntax#
NEXT -> [1] Next#Error : Cannot find a matching FOR#
DIM a(5):a(6)=1 -> [1] Dim a(5):a(6)=1#Error : Index out of bounds#
a$=SPACE$(200)+SPACE$(56) -> [1] a$=Space$(200)+Space$(56)#Error : String too long#
DO|i=i+1|LOOP UNTIL i=5|DO|DO|GOTO y|y:|x:|DO|GOTO x -> [9] Do#Error : Too many nested loops#
DIM INTEGER a -> [1] Dim Integer a#Error : INTEGER is not in the simulated board#
)";

TEST(Basic, ProgramsPrintWhatTheyShould) {
    BoardBench().ExpectRows(kPrograms, &BoardBench::Printed);
}

}  // namespace
