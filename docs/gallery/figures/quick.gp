set xlabel "t (ms)"
set ylabel "U (V)"
set mxtics
set mytics
plot "sets_22k.dat" skip 4 with yerrorbars pointtype 6 pointsize 1.5 linecolor "black", \
  "sets_47k.dat" skip 4 with yerrorbars pointtype 5 pointsize 1.5 linecolor "#0072B2", \
  "sets_100k.dat" skip 4 with yerrorbars pointtype 11 pointsize 1.5 linecolor "#D55E00", \
  9*exp(-x/4.7) linewidth 2 linecolor "#009E73"
