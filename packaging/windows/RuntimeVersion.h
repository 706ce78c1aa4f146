/* The version of the C runtime that a cross build links, for the list of what is inside. */
#include <_mingw_mac.h>
__MINGW64_VERSION_MAJOR __MINGW64_VERSION_MINOR __MINGW64_VERSION_BUGFIX
