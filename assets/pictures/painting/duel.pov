// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT
// The two ships on a clear ground; poses.inc places and lights them, sea.py paints the water.
// Eye and Focus are the camera of camera.py; the picture is the upper part of a frame
// of 800 by 806, so that the horizon lies in the frame's middle.
// Deliberate: the sun of this scene stands a little higher than the painted one, so that it shines
// through the sails and still touches rails and decks, and it shines on each ship more from the
// side. The sky behind the eye lights their sides.
#version 3.7;
global_settings{ assumed_gamma 1.0 max_trace_level 6 }
#declare JibThrough = .34;
#include "vessel.inc"
#macro Dressed(Side, Flag, Streamer)
  #declare T_Side = texture{ Laid(Side) finish{F_Wood} };
  #declare T_Ensign = texture{ Laid(Flag) finish{ diffuse .7, .5 } };
  #declare T_Pennant = texture{ pigment{ srgb Streamer } finish{ diffuse .8, .5 } };
#end
Dressed("side_first.png", "ensign_first.png", <.60,.19,.16>)
#include "first.inc"
Dressed("side_second.png", "ensign_second.png", <.22,.33,.54>)
#include "second.inc"
camera{ perspective location <0,Eye,0> direction z*Focus up y*806 right x*800 }
// A ship with a sun of her own behind her, on the side of the picture's middle, so that the bellies
// of her sails have a bright side and a dark one. Side is 1 if the sun stands to her right.
#macro Lit(Ship, Side)
  #local Sun = vnormalize(<Side*.50,.25,1>)*2000;
  light_group{
    light_source{ Sun rgb <1,.70,.45>*3.5 area_light x*1000,y*1000,5,5 adaptive 1
      circular orient parallel point_at 0 }
    // The whole bright sky round the sun: it softens every shadow on the cloth.
    light_source{ Sun*<1,-.25,1> rgb <1,.58,.32>*.45 shadowless parallel point_at 0 }
    object{ Ship }
    global_lights on
  }
#end
// The mauve sky behind the eye, its zenith, and the sea below.
light_source{ <-350,600,-1500> rgb <.52,.49,.80>*.58 shadowless parallel point_at 0 }
light_source{ <900,1500,-900> rgb <.60,.46,.68>*.20 shadowless parallel point_at 0 }
light_source{ <0,-700,-900> rgb <1,.60,.42>*.20 shadowless parallel point_at 0 }
#include "poses.inc"
