set xlabel "t (s)"
set ylabel "s (cm)"
set xrange [0:2.5]
set yrange [0:80]
set mxtics
set mytics
unset key
plot "errors.dat" skip 4 with xyerrorbars pointtype 7 pointsize 1.5 linecolor "black"
