#pragma parameterX "L" 1.0.0 2 3 4
#pragma myparameter y "M" 1 0 2
#pragma parameter z "" 1 0 2 1
