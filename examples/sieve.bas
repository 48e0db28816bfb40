'target s\picomite
' The primes up to 300 by the sieve of Eratosthenes, in columns of ten.
DIM crossed(300)
start = TIMER
FOR n = 2 TO 17
  IF crossed(n) = 0 THEN
    FOR m = n * n TO 300 STEP n
      crossed(m) = 1
    NEXT m
  ENDIF
NEXT n

PRINT
found = 0
out$ = ""
FOR n = 2 TO 300
  IF crossed(n) = 0 THEN
    found = found + 1
    out$ = out$ + RIGHT$(SPACE$(6) + STR$(n), 6)
    IF LEN(out$) = 60 THEN
      PRINT out$
      out$ = ""
    ENDIF
  ENDIF
NEXT n
IF out$ <> "" THEN PRINT out$
PRINT STRING$(60, "-")
PRINT "Found"; found; " primes in"; TIMER - start; " ms."
