#version 120
#pragma parameter gamma "Gamma" 2.2 1.0 3.0 0.05
#pragma parameter b "Brightness"1.0 0.0 2.0 0.01
uniform float gamma;
