# The band of 95 % needs Student's t at 7 degrees of freedom, taken from a table.
f(x) = b*x + c
b = 0.2; c = 0.5
t = 2.365
set fit quiet logfile "/dev/null" errorvariables covariancevariables errorscaling
fit f(x) "band.dat" skip 4 using 1:2:3 yerrors via b, c
wide(x) = t*sqrt(x**2*b_err**2 + c_err**2 + 2*x*FIT_COV_b_c)
set xlabel "Portata (l/min)"
set ylabel "U (V)"
set xrange [1:15]
set mxtics
set mytics
set key left top
plot "+" using 1:(f($1)-wide($1)):(f($1)+wide($1)) with filledcurves title "banda al 95 %" \
    fillcolor "#0072B2" fillstyle transparent solid 0.25 noborder, \
  f(x) title "retta" linewidth 2 linecolor "#0072B2", \
  "band.dat" skip 4 with yerrorbars title "misure" pointtype 7 pointsize 1.5 linecolor "black"
