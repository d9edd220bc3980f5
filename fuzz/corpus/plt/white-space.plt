PD	1	 	2;
PD 1 2;
PD1  2;
PD+1 -0;
