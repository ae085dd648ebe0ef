// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT
// A barrier from straight above, W x H pixels, its highest cell at Top, its sea floor at -4.
// Shadow: 1 renders only the shadow it casts on the water.
// Fill: how strong the light in the shade is, 1 on land with plants, less on bare rock.
// To change: the lights below; heights and colours come as height.png and ground.png.
#version 3.7;
global_settings{ assumed_gamma 1.0 max_trace_level 6 }
#include "flora.inc"
#include "plants.inc"
camera{ orthographic location <0,400,0> direction -y*400 up <0,0,H> right <W,0,0> }
#declare SunDir = vnormalize(<-.60,1.35,.60>);
#if (Shadow = 0)
  light_source{ SunDir*3000 rgb <1.0,.95,.84>*1.05 area_light x*140,z*140,4,4 adaptive 1
    parallel point_at 0 }
  light_source{ <600,1500,-500> rgb <.6,.7,.9>*.26*Fill shadowless parallel point_at 0 }
  light_source{ <-100,2000,100> rgb <.9,.92,.95>*.38*Fill shadowless parallel point_at 0 }
#else
  light_source{ SunDir*3000 rgb 1 area_light x*140,z*140,4,4 adaptive 1 parallel point_at 0 }
#end
#declare Land = height_field{ png "height.png" smooth water_level 3.9/(Top+4)
  pigment{ image_map{ png "ground.png" interpolate 2 } rotate x*90 } finish{ ambient 0 diffuse .9 }
  translate <-.5,0,-.5> scale <W,Top+4,H> translate -4*y };
#if (Shadow = 0)
  object{Land} object{Plants}
#else
  object{Land no_image} object{Plants no_image}
  plane{ y,0 pigment{rgb 1} finish{ambient 0 diffuse 1} }
#end
