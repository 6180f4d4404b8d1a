# Weight, milk and grass over the season, from the series of a run: gnuplot season.gp draws season.png.
set terminal pngcairo size 1100,1200
set output "season.png"
set datafile commentschars "#"
set multiplot layout 3,1
set xlabel "jours depuis le 1er avril"
set xrange [0:230]
unset key
day(clock) = clock / 24.0
set title "Poids vif des vaches (kg)"
plot "cows.txt" using (day($2)):3 with lines lw 1
set title "Lait par vache (kg par jour)"
set yrange [0:*]
plot "cows.txt" using (day($2)):4 with lines lw 1
set title "Herbe sur pied (kg MS par ha)"
set key outside right
plot for [p in "home hill1 hill2 hill3 hill4 hill5 river1 river2"] \
  "< grep '^".p."[[:blank:]]' paddocks.txt" using (day($2)):3 with lines lw 2 title p
unset multiplot
