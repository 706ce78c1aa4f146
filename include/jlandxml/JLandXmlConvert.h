/**
 * @file
 * The J-LandXML converter as a host application calls it: one function of JLandXmlConvert.dll (Windows) or
 * libJLandXmlConvert.so (Linux). Plain C11 or C++.
 *
 * Link with the module, or load it when it is needed, by its whole path, so that no other file of that name is found:
 *
 * @code{.c}
 * HMODULE module = LoadLibraryExW(L"C:\\Program Files\\Host\\JLandXmlConvert.dll", NULL, LOAD_LIBRARY_SEARCH_SYSTEM32);
 * ExecuteQuorvaneFunction execute = (ExecuteQuorvaneFunction)(void*)GetProcAddress(module, "ExecuteQuorvane");
 * execute(L"C:\\Users\\me\\AppData\\Local\\Temp\\export", 2);
 * @endcode
 */
#ifndef JLANDXML_JLANDXMLCONVERT_H
#define JLANDXML_JLANDXMLCONVERT_H

#include <stdint.h>
#include <wchar.h>

/**
 * @def JLANDXML_API
 * Where the function comes from: the module. The module's own sources define JLANDXML_BUILDS_MODULE, a host defines
 * nothing.
 *
 * @def JLANDXML_CALL
 * The calling convention of the function.
 */
#if !defined(_WIN32)
#define JLANDXML_API __attribute__((visibility("default")))
#define JLANDXML_CALL
#elif defined(JLANDXML_BUILDS_MODULE)
#define JLANDXML_API /* exported by the module's definition file */
#define JLANDXML_CALL __cdecl
#else
#define JLANDXML_API __declspec(dllimport)
#define JLANDXML_CALL __cdecl
#endif

#ifdef __cplusplus
extern "C"
{
#endif

    /**
     * Turns a work folder into a J-LandXML file: loads what the host wrote there, has the user complete it in a modal
     * dialog, asks for a file name and writes the file.
     *
     * @param workFolder The folder with Landxml_temp.xml and, for each route n from 1, the side files that there are:
     *     intermediatePts_temp_\<n\>.csv, widthStake_temp_\<n\>.csv, superElevation_temp_\<n\>.csv,
     *     widening_temp_\<n\>.csv. No separator at its end is needed; "/" and the file's name are put behind it.
     *     UTF-16 on Windows, UTF-32 elsewhere, ended by a zero. It is read during the call only.
     *     Null or empty: the file system's root is searched, not the current folder.
     * @param routeCount The number of routes whose side files are read. With 0 or less none is.
     *
     * @par It blocks
     * The function returns when the user has closed the dialog, by output or by cancel, or when a message box has told
     * why there is no dialog. Until then the thread handles the messages of all its windows.
     *
     * @par Thread
     * The one that the host's windows belong to, on Windows and with Qt. A call comes back at once, with nothing done,
     * while another thread's call is running.
     *
     * @par Owner window
     * The dialog belongs to the host's main window: the root owner of the calling thread's active window. The thread's
     * other top-level windows take no input while it is open, and get it back before the function returns.
     *
     * @par Not reentrant
     * Timers and messages of the host go on while the dialog is open. A call that one of them makes brings the open
     * dialog to the front and returns; it doesn't touch the run that is open, and its folder is not read.
     *
     * @par What the user is told
     * In Japanese message boxes: a side file that can't be read, a failed export, a missing temporary folder, what is
     * still missing in the data.
     *
     * @par What nobody is told
     *   - a missing, unreadable or malformed work file: the dialog opens on empty data;
     *   - a missing side file: that is normal;
     *   - a target that can't be written over, or a model that can't be written: the dialog closes as after success.
     *
     * @par
     * The host itself learns nothing, neither success nor cancel. It may look for the file that it expects, or run
     * jlandxml-convert, whose exit status tells. Of C++ exceptions only those that are no failure of the conversion,
     * such as std::bad_alloc between its stages, can leave the function; a host in another language needs enough memory
     * free.
     *
     * @par Trace lines
     * For each route with intermediate points one line "Row Value: \<name of the alignment\>" goes to the process's
     * standard output, as UTF-8 with a line feed (as text on a Windows console). Where there is no standard output, or
     * its reader is gone, nothing happens. Without a display (Linux) a message goes to standard error instead of into
     * a box.
     *
     * @par Files
     * The work folder is only read. The finished file is made beside the chosen one and takes its name; other work
     * files are in the user's temporary folder for the length of the export. What the process has of locale, current
     * folder, umask and signal handling stays as it is.
     *
     * @par Calling again
     * As often as the host likes. Every call replaces the data of the one before.
     *
     * @par Unloading
     * On Windows the module may be freed whenever no call is running; its memory goes with it. On Linux it stays until
     * the process ends, whatever dlclose is told, because its windows are Qt's.
     *
     * @par Qt (Linux)
     * The module is linked with Qt 6 Widgets. A host with a QApplication shares it, and must share Qt's libraries too.
     * In a host without one the module makes one at the first call, on the calling thread, which then has to make all
     * later calls; it stays as long as the process. In a host that has a QCoreApplication only, or on another thread
     * than the application object's, there is no dialog: that is told on standard error.
     */
    JLANDXML_API void JLANDXML_CALL ExecuteQuorvane(const wchar_t* workFolder, int32_t routeCount);

    /**
     * ExecuteQuorvane as a type, for a host that loads the module by itself.
     *
     * @param workFolder as for ExecuteQuorvane
     * @param routeCount as for ExecuteQuorvane
     */
    typedef void(JLANDXML_CALL* ExecuteQuorvaneFunction)(const wchar_t* workFolder, int32_t routeCount);

#ifdef __cplusplus
}
#endif

#endif
