PU1 2;
PDÿ3 4;
PD3 4;þ
À¯PD1 2;
PDÂ 5 6;
