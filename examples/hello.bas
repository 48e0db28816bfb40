'target s\picomite
' A greeting from the board that runs it.
PRINT
PRINT "Hello from "; MM.DEVICE$; "!"
FOR i = 1 TO 5
  PRINT SPACE$(i * 2); "Kewlink Console greets you for time"; i
NEXT i
PRINT "It is "; TIME$; " on the board's clock. Bye."
