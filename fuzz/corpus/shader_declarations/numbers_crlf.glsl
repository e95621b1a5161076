	 #pragma parameter a "A" +1.5e0 -.5 2. 1e-2 // comment
#pragma parameter n "N" 1 10 0 -1
