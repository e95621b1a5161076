// The glass of a monitor in front of the guest's picture.
#version 120

#pragma parameter BRIGHTNESS "Brightness" 1.0 0.2 2.0 0.02
#pragma parameter CONTRAST "Contrast" 1.0 0.2 2.0 0.02
#pragma parameter GAMMA "Gamma" 1.0 0.4 2.4 0.05
#pragma parameter SCANLINE "Scanline strength (0 = none)" 0.3 0.0 1.0 0.02
#pragma parameter CURVATURE "Curvature of the glass (0 = flat)" 0.1 0.0 0.5 0.01

uniform sampler2D Picture;
uniform vec2 PictureSize;  // In guest pixels.
uniform float BRIGHTNESS;
uniform float CONTRAST;
uniform float GAMMA;
uniform float SCANLINE;
uniform float CURVATURE;

varying vec2 Position;  // (0, 0) is the top-left corner, (1, 1) the bottom-right one.

// Where the ray through a point of the glass meets the picture.
vec2 Bend(vec2 position) {
  vec2 centred = position * 2.0 - 1.0;
  centred *= 1.0 + CURVATURE * dot(centred.yx, centred.yx) * 0.5;
  return centred * 0.5 + 0.5;
}

// 1 on the picture; falls to 0 over a pixel beyond its edges.
float Inside(vec2 position) {
  vec2 distance_to_edge = min(position, 1.0 - position) * PictureSize;
  return clamp(min(distance_to_edge.x, distance_to_edge.y) + 0.5, 0.0, 1.0);
}

// Darkest between two lines of the guest.
float ScanlineLight(float y) {
  float between_lines = 0.5 + 0.5 * cos(6.2831853 * y * PictureSize.y);
  return 1.0 - SCANLINE * between_lines;
}

void main() {
  vec2 position = Bend(Position);
  vec3 colour = texture2D(Picture, position).rgb;
  colour = (colour - 0.5) * CONTRAST + 0.5;
  colour = pow(clamp(colour * BRIGHTNESS, 0.0, 1.0), vec3(1.0 / GAMMA));
  gl_FragColor = vec4(colour * ScanlineLight(position.y) * Inside(position), 1.0);
}
