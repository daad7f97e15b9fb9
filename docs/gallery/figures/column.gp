# Letters of 8 points on a sheet of 300 dots to the inch.
set termoption font "Liberation Sans,25"
f(x) = N*exp(-(x-m)**2/(2*s**2)) + a + b*x
N = 150; m = 660; s = 10; a = 100; b = -0.1
set fit quiet logfile "/dev/null"
fit f(x) "fit.dat" skip 4 using 1:2:3 yerrors via N, m, s, a, b
set border linewidth 2
set xlabel "E (keV)"
set ylabel "Conteggi"
set xtics 40
set samples 400
set mxtics
set mytics
plot f(x) title "y = Picco su fondo lineare" linewidth 5 linecolor "#0072B2", \
  "fit.dat" skip 4 with yerrorbars title "fit.dat" pointtype 6 pointsize 1.5 linewidth 2 linecolor "black"
