# Bands by hand: the errors of the points are known, so that the normal distribution gives the 95 %.
f(x) = b*x + c
b = 0.2; c = 0.5
set fit quiet logfile "/dev/null" errorvariables covariancevariables noerrorscaling
fit f(x) "band.dat" skip 4 using 1:2:3 yerrors via b, c
squared(x) = x**2*b_err**2 + c_err**2 + 2*x*FIT_COV_b_c
band(x) = 1.96*sqrt(squared(x))
prediction(x) = 1.96*sqrt(squared(x) + 0.18**2)
set xlabel "Portata (l/min)"
set ylabel "U (V)"
set xrange [2:14]
set mxtics
set mytics
set key left top
plot "+" using 1:(f($1)-prediction($1)):(f($1)+prediction($1)) with filledcurves title "previsione 95 %" \
    fillcolor "#DCEBF4", \
  "+" using 1:(f($1)-band($1)):(f($1)+band($1)) with filledcurves title "banda 95 %" fillcolor "#B9D8EA", \
  f(x) title "y = bx+c" linewidth 2 linecolor "#0072B2", \
  "band.dat" skip 4 with yerrorbars title "band.dat" pointtype 6 pointsize 1.5 linecolor "black"
