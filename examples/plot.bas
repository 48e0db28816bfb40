'target s\picomite
' Three columns of numbers for KWPlot: a wave that fades, a slow drift, and noise.
' Choose Mode > Monitor in the console, start KWPlot, and run this.
PAUSE 3000 ' what a run prints at once is taken as the reply to RUN, and not for the data port
PRINT "wave, drift, noise"
FOR i = 0 TO 599
  angle = i / 12
  wave = 10 * COS(angle) * (600 - i) / 600
  drift = 5 * SIN(angle / 20) - 2
  noise = 3 * RND() + 6
  PRINT wave; ","; drift; ","; noise
  PAUSE 50
NEXT i
