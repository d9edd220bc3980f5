PU?;
PDx;
