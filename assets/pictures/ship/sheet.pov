// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT
// One heading of the sheet from straight above. The ship turns, the light stays.
// Heading: tens of degrees clockwise from left. Shadow: 1 renders the shadow on the water.
// To change: SunDir turns the light, Tar and ClothGlow set how dark hull and how bright sails are.
#version 3.7;
global_settings{ assumed_gamma 1.0 max_trace_level 8 }
#declare ClothGlow = .24;
// At noon sunlit brown is as light as the sea; the outline needs a tone well below it.
#declare Tar = .3;
#include "ship_textures.inc"
#include "ship.inc"
camera{ orthographic location <0,300,0> direction -y*300 up <0,0,100> right <100,0,0> }
#declare SunDir = vnormalize(<-.60,1.35,.60>);
#if (Shadow = 0)
  light_source{ SunDir*3000 rgb <1.0,.95,.84>*1.0 area_light x*160,z*160,4,4 adaptive 1
    parallel point_at 0 }
  light_source{ <600,1500,-500> rgb <.6,.7,.9>*.34 shadowless parallel point_at 0 }
  light_source{ <-100,2000,100> rgb <.85,.9,1>*.34 shadowless parallel point_at 0 }
  object{ Ship rotate y*10*Heading }
#else
  light_source{ SunDir*3000 rgb 1 area_light x*260,z*260,5,5 adaptive 1 parallel point_at 0 }
  object{ Ship rotate y*10*Heading no_image }
  plane{ y,0 pigment{rgb 1} finish{ambient 0 diffuse 1} }
#end
