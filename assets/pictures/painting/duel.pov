// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT
// Two ships at dusk. EyeY, EyeZ and Focus are the camera of camera.py; poses.inc places the
// ships. The picture is 800 units wide at a distance of Focus from the eye.
// Mask: 1 renders the ships alone on a clear ground, for what has to lie behind them.
// To change: SunDir and the lights, the swell's height in Tile, the water in Water.
#version 3.7;
global_settings{ assumed_gamma 1.0 max_trace_level 6 }
#include "palette.inc"
#declare ClothGlow = .03;
#declare ClothDiffuse = .62;
#declare C_canvas = srgb <.93,.84,.68>;
#include "ship_textures.inc"
#include "ship.inc"
#declare FirstShip = Ship;
#declare T_Ensign = Ensign(C_navy);
#declare T_Pennant = texture{ pigment{srgb <.16,.30,.62>} finish{F_Cloth} };
#include "ship.inc"
#declare SecondShip = Ship;
camera{ perspective location <0,EyeY,EyeZ> direction z*Focus up y*800 right x*800 }
#declare SunDir = <tan(radians(3)),tan(radians(5.2)),1>;
light_source{ SunDir*20000 rgb <1,.58,.28>*2.1 area_light x*900,y*700,4,4 adaptive 1
  parallel point_at 0 }
light_source{ <-900,900,-1500> rgb <.62,.56,.78>*.44 shadowless parallel point_at 0 }
light_source{ <300,2000,-200> rgb <.85,.55,.55>*.26 shadowless parallel point_at 0 }
// What the glittering sea throws back warms the hulls' sides from below.
light_source{ <200,-300,-1500> rgb <1,.62,.40>*.30 shadowless parallel point_at 0 }
#if (Mask = 0)
// The painted sky is a flat screen far away, so that its pixels fall where they were painted.
box{ <-1,0,0>,<1,1,.001> pigment{ image_map{ png "sky.png" interpolate 2 once }
    scale <2,1,1> translate -x }
  finish{ ambient 0 diffuse 0 emission 1 } scale <30000,30000,1>
  translate <0,EyeY-60,EyeZ+30000> no_shadow }
sky_sphere{ pigment{ gradient y color_map{
  [0 srgb <.42,.30,.45>][.5 srgb <.20,.18,.36>][1 srgb <.09,.10,.24>]} } }
#declare Length = 900;
#declare Tile = height_field{ png "sea.png" smooth translate <-.5,-.4545,-.5>
  scale <Length,5.2,Length> };
#declare Water = texture{ pigment{ srgb <.10,.26,.32> }
  finish{ ambient 0 diffuse .30 specular .5 roughness .012 reflection{.03,.92 fresnel on}
    conserve_energy } };
union{
  #for (J,0,3) #for (I,-2,2)
    object{ Tile translate <I*Length,0,EyeZ+Length/2+5+J*Length> }
  #end #end
  texture{Water} interior{ior 1.33} }
plane{ y,-5 texture{ Water normal{ bumps .18 scale <60,8,12> } } interior{ior 1.33} }
#end
#include "poses.inc"
