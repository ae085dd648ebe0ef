// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT
// A ship in front of the moon, on a clear ground; five metres are sixteen pixels of the picture.
// To change: Through is how much of the moon shines through her sails; poses.inc turns her.
// The picture's own script darkens her to a silhouette.
#version 3.7;
global_settings{ assumed_gamma 1.0 max_trace_level 6 }
#declare Through = .16;
#declare Cloth = .55;
#declare Lamps = 1.7;
#include "vessel.inc"
#declare T_Side = texture{ Laid("side_first.png") finish{F_Wood} };
#declare T_Ensign = texture{ pigment{ srgb <.34,.32,.36> } finish{F_Cloth} };
#declare T_Pennant = T_Ensign;
#include "first.inc"
camera{ orthographic location <0,29.25,-400> direction z*400 up y*62.5 right x*87.5 }
// The moon stands behind her; the sky in front keeps a trace of form in cloth and wood.
light_source{ <420,420,900> rgb <1,.86,.62>*1.2 area_light x*400,y*400,4,4 adaptive 1
  circular orient parallel point_at 0 }
light_source{ <-500,900,-900> rgb <.36,.50,.86>*.17 shadowless parallel point_at 0 }
#include "poses.inc"
