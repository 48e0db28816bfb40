'target s\picomite
' Colours and a little cursor art by ANSI sequences, for a terminal of 101 x 50.
e$ = CHR$(27) + "["
PAUSE 3000 ' what a run prints at once is shown as one reply to RUN, with a line end behind
PRINT e$; "2J"; e$; "H"; e$; "?25l";

' A title, one colour for each letter.
t$ = "C O L O U R S"
PRINT e$; "2;44H";
FOR i = 1 TO LEN(t$)
  PRINT e$; STR$(31 + i MOD 6); "m"; MID$(t$, i, 1);
NEXT i

' The eight plain colours.
PRINT e$; "4;4H";
FOR i = 0 TO 7
  PRINT e$; STR$(40 + i); "m"; SPACE$(12);
NEXT i

' A rainbow that fades downwards.
FOR y = 6 TO 15
  PRINT e$; STR$(y); ";4H";
  light = (17 - y) / 11
  FOR x = 0 TO 95
    angle = x * 0.0654
    red = INT((128 + 127 * SIN(angle)) * light)
    green = INT((128 + 127 * SIN(angle + 2.094)) * light)
    blue = INT((128 + 127 * SIN(angle + 4.189)) * light)
    PRINT e$; "48;2;"; STR$(red); ";"; STR$(green); ";"; STR$(blue); "m ";
  NEXT x
  PRINT e$; "0m";
NEXT y

' Three waves, drawn by moving the cursor.
FOR x = 0 TO 95
  FOR w = 0 TO 2
    row = INT(31.5 + 12 * SIN(x * 0.0982 + w * 2.094))
    PRINT e$; STR$(row); ";"; STR$(x + 4); "H"; e$; STR$(31 + w); "m"; MID$("*o+", w + 1, 1);
  NEXT w
  PAUSE 8
NEXT x

PRINT e$; "0m"; e$; "46;4H"; e$; "?25h";
PRINT "That was 8 plain colours, 960 mixed ones and 288 moves of the cursor."
