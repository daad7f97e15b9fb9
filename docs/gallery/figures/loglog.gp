set title "Terza legge di Keplero"
set xlabel "a (u.a.)"
set ylabel "T (anni)"
set logscale xy
set format xy "10^{%L}"
set xrange [0.1:100]
set yrange [0.1:1000]
unset key
set label "Terra" at 1.26,0.7
set label "Giove" at 6.3,8.9
set label "Urano" at 24,66
set label "T^2 = a^3" at 0.16,250 textcolor "#D55E00"
plot x**1.5 linewidth 2 linecolor "#D55E00", \
  "loglog.dat" skip 4 with yerrorbars pointtype 7 pointsize 1.5 linecolor "black"
