set title "Potenziale di due cariche (V)"
set xlabel "x (cm)"
set ylabel "y (cm)"
set autoscale noextend
set mxtics
set mytics
set view map
unset surface
set contour base
set cntrparam levels incremental -6,2,12
set key outside right top
set palette defined (0 "#440154", 1 "#3B528B", 2 "#21918C", 3 "#5EC962", 4 "#FDE725")
unset colorbox
splot "field.grd" skip 7 matrix using (-3+$1*0.2):(-2.4+$2*0.2):3 with lines linewidth 2 linecolor palette title ""
