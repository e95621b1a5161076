#pragma parameter o "O" 1e39 0 2 1
#pragma parameter u "U" 1e-50 0 2 1
#pragma parameter h "H" 1 0 2 0x10
#pragma parameter i "I" inf 0 nan 1
