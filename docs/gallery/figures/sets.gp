set title "Scarica di un condensatore: U = U_0 e^{-t/τ}"
set xlabel "t (ms)"
set ylabel "U (V)"
set xrange [0:6]
set yrange [0:10]
set mxtics
set mytics
plot 9.03*exp(-x/2.184) notitle linewidth 2 linecolor "#0072B2", \
  "sets_22k.dat" skip 4 with yerrorbars title "22 kΩ" pointtype 7 pointsize 1.5 linecolor "#0072B2", \
  8.97*exp(-x/4.73) notitle linewidth 2 dashtype 2 linecolor "#D55E00", \
  "sets_47k.dat" skip 4 with yerrorbars title "47 kΩ" pointtype 5 pointsize 1.5 linecolor "#D55E00", \
  8.995*exp(-x/10.29) notitle linewidth 2 dashtype 4 linecolor "#009E73", \
  "sets_100k.dat" skip 4 with yerrorbars title "100 kΩ" pointtype 9 pointsize 1.5 linecolor "#009E73"
