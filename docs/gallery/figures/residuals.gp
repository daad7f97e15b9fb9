f(x) = A*exp(-g*x)*cos(w*x+f0)
A = 42; g = 0.3; w = 5.2; f0 = 0.3
set fit quiet logfile "/dev/null"
fit f(x) "residuals.dat" skip 4 using 1:2:3 yerrors via A, g, w, f0
set multiplot
set lmargin at screen 0.09
set rmargin at screen 0.97
set xrange [0:6]
set samples 400
set mxtics
set mytics
set tmargin at screen 0.97
set bmargin at screen 0.38
set format x ""
set ylabel "x (mm)"
plot f(x) title "y = A e^{-gx} cos(wx+f)" linewidth 2 linecolor "#0072B2", \
  "residuals.dat" skip 4 with yerrorbars title "residuals.dat" pointtype 6 pointsize 1.5 linecolor "black"
set tmargin at screen 0.35
set bmargin at screen 0.13
set format x
set xlabel "t (s)"
set ylabel "Scarti / σ"
set yrange [-4:4]
set ytics 2
plot 0 notitle linewidth 2 linecolor "#0072B2", \
  -2 notitle dashtype 3 linecolor "#606060", 2 notitle dashtype 3 linecolor "#606060", \
  "residuals.dat" skip 4 using 1:(($2-f($1))/$3):(1) with yerrorbars notitle pointtype 6 pointsize 1.5 linecolor "black"
unset multiplot
