set xlabel "x (cm)"
set ylabel "y (cm)"
set zlabel "U (V)" rotate parallel
set xyplane at -10
set zrange [-10:15]
set view 55,25
set palette defined (0 "#440154", 1 "#3B528B", 2 "#21918C", 3 "#5EC962", 4 "#FDE725") maxcolors 12
unset key
set pm3d depthorder border linecolor "black" linewidth 0.5
splot "field.grd" skip 7 matrix using (-3+$1*0.2):(-2.4+$2*0.2):3 with pm3d
