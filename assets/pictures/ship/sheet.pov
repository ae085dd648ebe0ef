// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT
// One heading of the sheet. The ship turns, the light stays.
// The projection is oblique: the water keeps its true plan, so that the hull turns without
// shrinking and fits the hit boxes, and heights rise straight up the screen by tan(Tilt).
// Heading: tens of degrees clockwise from left. Pass: 0 colour, 1 shadow on the water, 2 mask of
// the hull and of all that hangs low, 3 mask of all. Span: pixels of the view. Drop, Aside:
// pixels by which she is moved in her cell.
// To change: SunDir turns the shadow on the water, the first light that on her.
#version 3.7;
global_settings{ assumed_gamma 1.0 max_trace_level 8 }
#include "palette.inc"
#include "ship_textures.inc"
#include "ship.inc"
#declare Tan = tan(radians(Tilt));
camera{ orthographic location <-Aside,300,-300*Tan + Drop> direction <0,-1,Tan>*300
  up <0,0,Span> right <Span,0,0> }
#declare SunDir = vnormalize(<-.60,1.35,.60>);
#declare Low = 9;        // height up to which canvas counts as low
#if (Pass = 0)
  // For the colours, the sun stands a little nearer to the viewer than for the shadow on the
  // water; otherwise all visible sides would be in shade.
  light_source{ <-.80,1.15,-.22>*3000 rgb <1.0,.95,.84>*Sun area_light x*140,z*140,3,3 adaptive 1
    parallel point_at 0 }
  light_source{ <-500,700,-1000> rgb <.80,.88,1>*Front shadowless parallel point_at 0 }
  light_source{ <-100,2000,100> rgb <.80,.90,1>*Sky shadowless parallel point_at 0 }
  union{ object{Hull} object{Rig} rotate y*10*Heading }
#end
#if (Pass = 1)
  light_source{ SunDir*3000 rgb 1 area_light x*260,z*260,4,4 adaptive 1 parallel point_at 0 }
  union{ object{Hull} object{Rig} rotate y*10*Heading no_image }
  plane{ y,0 pigment{rgb 1} finish{ambient 0 diffuse 1} }
#end
#if (Pass = 2)
  union{ object{Hull} object{Rig clipped_by{plane{y,Low}}}
    rotate y*10*Heading pigment{rgb 1} finish{ambient 0 emission 1 diffuse 0} }
#end
#if (Pass = 3)
  union{ object{Hull} object{Rig} rotate y*10*Heading }
#end
