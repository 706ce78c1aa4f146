#pragma once

#include "windows/DialogTemplate.h"

namespace jlandxml::convert_dlg
{

// The numbers of the main dialog's controls that its logic works with.

inline constexpr int OUTPUT = 1;

inline constexpr int PROJECT_NAME = 1002;
inline constexpr int PROJECT_PHASE = 1006;
inline constexpr int APPLICATION_CRITERION = 1007;
inline constexpr int SOFTWARE_NAME = 1009;
inline constexpr int SOFTWARE_VERSION = 1005;

inline constexpr int HORIZONTAL_DATUM = 1012;
inline constexpr int VERTICAL_DATUM = 1014;
inline constexpr int HORIZONTAL_COORDINATE_SYSTEM = 1016;

inline constexpr int TREE = 1019;

inline constexpr int ROAD = 1020;
inline constexpr int RIVER = 1022;
inline constexpr int ROAD_CLASSIFICATION = 1023;
inline constexpr int RIVER_CLASSIFICATION = 1025;
inline constexpr int TRAFFIC_VOLUME = 1029;
inline constexpr int RIVER_SIDE = 1030;

inline constexpr int MAIN_INTERVAL = 1035;
inline constexpr int SUB_INTERVAL = 1037;
inline constexpr int METHOD = 1040;
inline constexpr int NORMAL_CROWN = 1042;
inline constexpr int LANES = 1045;
inline constexpr int SUPERELEVATION_DEFINITION = 1047;

inline constexpr int SURFACE_REFERENCE = 1050;
inline constexpr int SURFACE_KIND = 1053;

inline constexpr int INTERMEDIATE_REFERENCE = 1054;
inline constexpr int WIDTH_STAKE_REFERENCE = 1057;
inline constexpr int CLOSURE_TYPE = 1060;
inline constexpr int WIDTH_STAKE_DESC = 1062;

// The panels' controls, each with its labels and units, that are enabled and shown together.

inline constexpr int ROUTE_SET[] = {1021, 1020, 1022, 1023, 1025, 1026, 1028, 1029, 1030, 1031, 1032};
inline constexpr int ALIGNMENT_SET[] = {1033, 1034, 1035, 1036, 1037, 1038, 1039, 1040,
                                        1041, 1042, 1043, 1044, 1045, 1046, 1047, 1048};
inline constexpr int SURFACE_SET[] = {1049, 1050, 1051, 1052, 1053};
inline constexpr int INTERMEDIATE_SET[] = {1055, 1054, 1056};
inline constexpr int WIDTH_STAKE_SET[] = {1055, 1057, 1058, 1059, 1060, 1061, 1062};

/// The main dialog: the tree at the left, the panel of what is selected below it, project and coordinate system at the
/// right. The panels of routes, surfaces and point groups share one place.
extern const DialogTemplate TEMPLATE;

} // namespace jlandxml::convert_dlg
