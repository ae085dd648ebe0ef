// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT
// A ship before the moon, on a clear ground; nine units are twenty pixels of the finished picture.
// To change: the two lights, and how the ship lies in the last line.
#version 3.7;
global_settings{ assumed_gamma 1.0 max_trace_level 6 }
#declare ClothGlow = 0;
#declare ClothDiffuse = .7;
#include "ship_textures.inc"
#include "ship.inc"
camera{ orthographic location <0,38,-400> direction z*400 up y*90 right x*126 }
light_source{ <-500,900,1500> rgb <1,.93,.75>*1.3 parallel point_at 0 }
light_source{ <-900,500,-900> rgb <.35,.45,.7>*.34 shadowless parallel point_at 0 }
object{ Ship rotate z*1 rotate y*218 translate <0,0,0> }
