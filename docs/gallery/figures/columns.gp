set xlabel "x (mm)"
set ylabel "y (mm)"
set zlabel "Conteggi" rotate parallel
set xyplane at 0
set zrange [0:120]
set view 55,25
set boxwidth 5
set boxdepth 5
set grid x y z vertical
set pm3d depthorder base border linecolor "black" linewidth 0.5
set pm3d lighting primary 0.5
unset key
splot "columns.grd" skip 7 matrix using (-22.5+$1*5):(-17.5+$2*5):3 with boxes fillcolor "#DDDDDD"
