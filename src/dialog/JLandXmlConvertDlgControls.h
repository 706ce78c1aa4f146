#pragma once

#include "windows/DialogTemplate.h"

namespace jlandxml::convert_dlg
{

// The numbers of the main dialog's controls, each field behind its label and before its unit. What a control is stands
// at the end of its name.

inline constexpr int OUTPUT_BUTTON = ACCEPT_COMMAND;

inline constexpr int PROJECT_GROUP = 1000;
inline constexpr int PROJECT_NAME_LABEL = 1001;
inline constexpr int PROJECT_NAME_EDIT = 1002;
inline constexpr int PROJECT_PHASE_LABEL = 1003;
inline constexpr int PROJECT_PHASE_LIST = 1006;
inline constexpr int APPLICATION_CRITERION_LABEL = 1008;
inline constexpr int APPLICATION_CRITERION_LIST = 1007;
inline constexpr int SOFTWARE_NAME_LABEL = 1010;
inline constexpr int SOFTWARE_NAME_EDIT = 1009;
inline constexpr int SOFTWARE_VERSION_LABEL = 1011;
inline constexpr int SOFTWARE_VERSION_EDIT = 1005;

inline constexpr int COORDINATE_SYSTEM_GROUP = 1018;
inline constexpr int HORIZONTAL_DATUM_LABEL = 1013;
inline constexpr int HORIZONTAL_DATUM_EDIT = 1012;
inline constexpr int VERTICAL_DATUM_LABEL = 1015;
inline constexpr int VERTICAL_DATUM_LIST = 1014;
inline constexpr int HORIZONTAL_COORDINATE_SYSTEM_LABEL = 1017;
inline constexpr int HORIZONTAL_COORDINATE_SYSTEM_EDIT = 1016;

inline constexpr int OBJECT_TREE = 1019;

inline constexpr int ROUTE_GROUP = 1021;
inline constexpr int ROAD_RADIO = 1020;
inline constexpr int RIVER_RADIO = 1022;
inline constexpr int ROAD_CLASSIFICATION_LABEL = 1026;
inline constexpr int ROAD_CLASSIFICATION_LIST = 1023;
inline constexpr int TRAFFIC_VOLUME_LABEL = 1031;
inline constexpr int TRAFFIC_VOLUME_EDIT = 1029;
inline constexpr int RIVER_CLASSIFICATION_LABEL = 1028;
inline constexpr int RIVER_CLASSIFICATION_LIST = 1025;
inline constexpr int RIVER_SIDE_LABEL = 1032;
inline constexpr int RIVER_SIDE_LIST = 1030;

inline constexpr int ALIGNMENT_GROUP = 1033;
inline constexpr int MAIN_INTERVAL_LABEL = 1034;
inline constexpr int MAIN_INTERVAL_EDIT = 1035;
inline constexpr int MAIN_INTERVAL_UNIT = 1036;
inline constexpr int SUB_INTERVAL_LABEL = 1038;
inline constexpr int SUB_INTERVAL_EDIT = 1037;
inline constexpr int SUB_INTERVAL_UNIT = 1039;
inline constexpr int METHOD_LABEL = 1041;
inline constexpr int METHOD_LIST = 1040;
inline constexpr int NORMAL_CROWN_LABEL = 1043;
inline constexpr int NORMAL_CROWN_EDIT = 1042;
inline constexpr int NORMAL_CROWN_UNIT = 1044;
inline constexpr int LANES_LABEL = 1046;
inline constexpr int LANES_LIST = 1045;
inline constexpr int SUPERELEVATION_DEFINITION_LABEL = 1048;
inline constexpr int SUPERELEVATION_DEFINITION_LIST = 1047;

inline constexpr int SURFACE_GROUP = 1049;
inline constexpr int SURFACE_REFERENCE_LABEL = 1051;
inline constexpr int SURFACE_REFERENCE_LIST = 1050;
inline constexpr int SURFACE_KIND_LABEL = 1052;
inline constexpr int SURFACE_KIND_LIST = 1053;

inline constexpr int POINTS_GROUP = 1055;
inline constexpr int INTERMEDIATE_REFERENCE_LABEL = 1056;
inline constexpr int INTERMEDIATE_REFERENCE_LIST = 1054;
inline constexpr int WIDTH_STAKE_REFERENCE_LABEL = 1058;
inline constexpr int WIDTH_STAKE_REFERENCE_LIST = 1057;
inline constexpr int CLOSURE_TYPE_LABEL = 1059;
inline constexpr int CLOSURE_TYPE_LIST = 1060;
inline constexpr int WIDTH_STAKE_DESC_LABEL = 1061;
inline constexpr int WIDTH_STAKE_DESC_EDIT = 1062;

// The panels' controls, each with its labels and units, that are enabled and shown together.

inline constexpr int ROUTE_SET[] = {ROUTE_GROUP,
                                    ROAD_RADIO,
                                    RIVER_RADIO,
                                    ROAD_CLASSIFICATION_LIST,
                                    RIVER_CLASSIFICATION_LIST,
                                    ROAD_CLASSIFICATION_LABEL,
                                    RIVER_CLASSIFICATION_LABEL,
                                    TRAFFIC_VOLUME_EDIT,
                                    RIVER_SIDE_LIST,
                                    TRAFFIC_VOLUME_LABEL,
                                    RIVER_SIDE_LABEL};
inline constexpr int ALIGNMENT_SET[] = {ALIGNMENT_GROUP,
                                        MAIN_INTERVAL_LABEL,
                                        MAIN_INTERVAL_EDIT,
                                        MAIN_INTERVAL_UNIT,
                                        SUB_INTERVAL_EDIT,
                                        SUB_INTERVAL_LABEL,
                                        SUB_INTERVAL_UNIT,
                                        METHOD_LIST,
                                        METHOD_LABEL,
                                        NORMAL_CROWN_EDIT,
                                        NORMAL_CROWN_LABEL,
                                        NORMAL_CROWN_UNIT,
                                        LANES_LIST,
                                        LANES_LABEL,
                                        SUPERELEVATION_DEFINITION_LIST,
                                        SUPERELEVATION_DEFINITION_LABEL};
inline constexpr int SURFACE_SET[] = {SURFACE_GROUP, SURFACE_REFERENCE_LIST, SURFACE_REFERENCE_LABEL,
                                      SURFACE_KIND_LABEL, SURFACE_KIND_LIST};
inline constexpr int INTERMEDIATE_SET[] = {POINTS_GROUP, INTERMEDIATE_REFERENCE_LIST, INTERMEDIATE_REFERENCE_LABEL};
inline constexpr int WIDTH_STAKE_SET[] = {POINTS_GROUP,         WIDTH_STAKE_REFERENCE_LIST, WIDTH_STAKE_REFERENCE_LABEL,
                                          CLOSURE_TYPE_LABEL,   CLOSURE_TYPE_LIST,          WIDTH_STAKE_DESC_LABEL,
                                          WIDTH_STAKE_DESC_EDIT};

/// The main dialog: the tree at the left, the panel of what is selected below it, project and coordinate system at the
/// right. The panels of routes, surfaces and point groups share one place.
extern const DialogTemplate TEMPLATE;

} // namespace jlandxml::convert_dlg
