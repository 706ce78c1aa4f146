// A host in plain C that calls the module a hundred times, with cancel and with output in turn, and then unloads it.
// After each call its own state is as it was before. After every ten calls it counts what the process holds. The
// system's libraries fill caches and empty them now and then, so a figure may jump between two counts; what the calls
// leave behind makes it grow between most of them: the median of the growths counts. Before that, a call is made with a
// palette active, a second window and a timer that calls again.
//
//   host MODULE WORK_FOLDER OUT
//
// Status 0: nothing is left behind; 1: something is; 9: a window didn't come up or go.

#include <windows.h>

#include "jlandxml/JLandXmlConvert.h"
#include <commctrl.h>
#include <commdlg.h>
#include <dlgs.h>
#include <locale.h>
#include <malloc.h>
#include <objbase.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <tlhelp32.h>

enum
{
    CALLS = 100,
    CALLS_BETWEEN_COUNTS = 10,
    COUNTS = CALLS / CALLS_BETWEEN_COUNTS,
    OUTPUT_BUTTON = 1,
    CANCEL_BUTTON = 2,
    TREE = 1019,
    ROAD_CLASSIFICATION = 1023,
    NORMAL_CROWN = 1042,
    WIDTH_STAKE_DESC = 1062
};

static const DWORD PATIENCE = 60000; // milliseconds
static const DWORD PAUSE = 10;

static HWND mainWindow;
static HWND volatile idleDialog; // has nothing left to do but wait for the user
static wchar_t outputFile[MAX_PATH];
static int failures;

static void Check(int holds, const char* what, int call)
{
    if (!holds)
    {
        printf("call %d: %s\n", call, what);
        ++failures;
    }
}

// The driver, in a thread of its own

typedef BOOL (*Condition)(HWND);

static BOOL IsSaveDialog(HWND window)
{
    return GetDlgItem(window, TREE) == NULL && GetDlgItem(window, stc3) != NULL &&
           (GetDlgItem(window, edt1) != NULL || GetDlgItem(window, cmb13) != NULL);
}

static BOOL IsMainDialog(HWND window)
{
    return GetDlgItem(window, TREE) != NULL && idleDialog == window;
}

struct Search
{
    Condition condition;
    HWND found;
};

static BOOL CALLBACK LookAt(HWND window, LPARAM data)
{
    struct Search* const search = (struct Search*)data;
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    GUITHREADINFO info = {.cbSize = sizeof(info)};
    if (process == GetCurrentProcessId() && IsWindowVisible(window) && IsWindowEnabled(window) &&
        search->condition(window) && GetGUIThreadInfo(GetWindowThreadProcessId(window, NULL), &info) &&
        IsChild(window, info.hwndFocus))
    {
        search->found = window;
        return FALSE;
    }
    return TRUE;
}

static void GiveUp(const char* what)
{
    printf("%s\n", what);
    fflush(stdout);
    TerminateProcess(GetCurrentProcess(), 9);
}

static HWND WaitForDialog(Condition condition)
{
    struct Search search = {condition, NULL};
    for (DWORD waited = 0; search.found == NULL; waited += PAUSE)
    {
        if (waited > PATIENCE)
        {
            GiveUp("no dialog came up");
        }
        Sleep(PAUSE);
        EnumWindows(LookAt, (LPARAM)&search);
    }
    return search.found;
}

static void WaitForEnd(HWND window)
{
    for (DWORD waited = 0; IsWindow(window); waited += PAUSE)
    {
        if (waited > PATIENCE)
        {
            GiveUp("a dialog didn't go");
        }
        Sleep(PAUSE);
    }
}

static void AnswerSaveDialog(void)
{
    const HWND dialog = WaitForDialog(IsSaveDialog);
    const HWND edit = GetDlgItem(dialog, edt1) != NULL ? GetDlgItem(dialog, edt1) : GetDlgItem(dialog, cmb13);
    SendMessageW(edit, WM_SETTEXT, 0, (LPARAM)outputFile);
    PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    WaitForEnd(dialog);
}

static DWORD WINAPI Cancel(void* nothing)
{
    const HWND dialog = WaitForDialog(IsMainDialog);
    PostMessageW(GetDlgItem(dialog, CANCEL_BUTTON), BM_CLICK, 0, 0);
    WaitForEnd(dialog);
    return nothing != NULL;
}

/// Chooses an item of the tree, so that its panel is shown.
static HTREEITEM Choose(HWND tree, WPARAM which, HTREEITEM from)
{
    const HTREEITEM item = (HTREEITEM)SendMessageW(tree, TVM_GETNEXTITEM, which, (LPARAM)from);
    SendMessageW(tree, TVM_SELECTITEM, TVGN_CARET, (LPARAM)item);
    return item;
}

/// Completes what a road's work folder can't tell: its class, its normal crown and the note of its last stakes.
static void FillIn(HWND dialog)
{
    const HWND tree = GetDlgItem(dialog, TREE);
    const HTREEITEM route = Choose(tree, TVGN_ROOT, NULL);
    SendDlgItemMessageW(dialog, ROAD_CLASSIFICATION, CB_SETCURSEL, 1, 0);
    Choose(tree, TVGN_CHILD, route);
    SendDlgItemMessageW(dialog, NORMAL_CROWN, WM_SETTEXT, 0, (LPARAM)L"2.0");
    Choose(tree, TVGN_LASTVISIBLE, NULL);
    SendDlgItemMessageW(dialog, WIDTH_STAKE_DESC, WM_SETTEXT, 0, (LPARAM)L"用地境界");
}

static DWORD WINAPI Output(void* nothing)
{
    const HWND dialog = WaitForDialog(IsMainDialog);
    FillIn(dialog);
    PostMessageW(GetDlgItem(dialog, OUTPUT_BUTTON), BM_CLICK, 0, 0);
    AnswerSaveDialog();
    WaitForEnd(dialog);
    return nothing != NULL;
}

static DWORD WINAPI Save(void* nothing)
{
    AnswerSaveDialog();
    return nothing != NULL;
}

// The host

static LRESULT CALLBACK MainProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_ENTERIDLE)
    {
        idleDialog = (HWND)lParam;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

static void MakeMainWindow(void)
{
    const WNDCLASSEXW windowClass = {.cbSize = sizeof(windowClass),
                                     .lpfnWndProc = MainProcedure,
                                     .hInstance = GetModuleHandleW(NULL),
                                     .lpszClassName = L"HostMainWindow"};
    RegisterClassExW(&windowClass);
    mainWindow = CreateWindowExW(0, L"HostMainWindow", L"host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 1000, 700, NULL,
                                 NULL, windowClass.hInstance, NULL);
    SetActiveWindow(mainWindow);
    SetFocus(mainWindow);
}

static void HandleMessages(void)
{
    MSG message;
    while (PeekMessageW(&message, NULL, 0, 0, PM_REMOVE))
    {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

/// Waits for the driver, which may still have a message on its way to this thread.
static void WaitForDriver(HANDLE driver)
{
    while (MsgWaitForMultipleObjects(1, &driver, FALSE, INFINITE, QS_ALLINPUT) != WAIT_OBJECT_0)
    {
        HandleMessages();
    }
    CloseHandle(driver);
    HandleMessages();
}

static void Call(ExecuteQuorvaneFunction function, const wchar_t* folder, int call)
{
    const BOOL output = call % 2 != 0;
    DeleteFileW(outputFile);
    const HANDLE driver = CreateThread(NULL, 0, output ? Output : Cancel, NULL, 0, NULL);
    function(folder, 1);
    WaitForDriver(driver);
    const BOOL written = GetFileAttributesW(outputFile) != INVALID_FILE_ATTRIBUTES;
    Check(written == output, output ? "no file was written" : "a file was written", call);
}

/// Opens the system's save dialog without the module.
static void OpenSaveDialog(void)
{
    wchar_t path[MAX_PATH] = L"";
    OPENFILENAMEW save = {.lStructSize = sizeof(save),
                          .hwndOwner = mainWindow,
                          .lpstrFilter = L"XML Files (*.xml)\0*.xml\0",
                          .lpstrFile = path,
                          .nMaxFile = MAX_PATH,
                          .Flags = OFN_EXPLORER | OFN_ENABLESIZING | OFN_HIDEREADONLY | OFN_NOCHANGEDIR};
    DeleteFileW(outputFile);
    const HANDLE driver = CreateThread(NULL, 0, Save, NULL, 0, NULL);
    GetSaveFileNameW(&save);
    WaitForDriver(driver);
}

// A call among other windows of the host, during which a timer calls again

static ExecuteQuorvaneFunction calledAgain;
static wchar_t otherFolder[MAX_PATH];
static HWND palette;
static HWND secondWindow;
static HWND lockedWindow; // disabled by the host itself
static volatile LONG callsAgain;

static HWND MakeWindow(DWORD style, HWND owner)
{
    return CreateWindowExW(0, L"HostMainWindow", L"another", style | WS_VISIBLE, 1010, 10, 200, 150, owner, NULL,
                           GetModuleHandleW(NULL), NULL);
}

static void CALLBACK CallAgain(HWND window, UINT message, UINT_PTR timer, DWORD time)
{
    const HWND dialog = idleDialog;
    if (message != WM_TIMER || time == 0 || !IsWindow(dialog))
    {
        return;
    }
    KillTimer(window, timer);
    Check(GetWindow(dialog, GW_OWNER) == mainWindow, "the dialog belongs to another window", 0);
    Check(!IsWindowEnabled(mainWindow), "the main window can be worked", 0);
    Check(!IsWindowEnabled(palette), "the palette can be worked", 0);
    Check(!IsWindowEnabled(secondWindow), "the second window can be worked", 0);
    const HWND news = MakeWindow(WS_OVERLAPPEDWINDOW, NULL);
    SetActiveWindow(news);
    Check(GetActiveWindow() == news, "the dialog is still active", 0);
    calledAgain(otherFolder, 0);
    Check(GetActiveWindow() == dialog, "the open dialog isn't in front", 0);
    DestroyWindow(news);
    InterlockedIncrement(&callsAgain);
}

static DWORD WINAPI OutputAfterAnotherCall(void* nothing)
{
    for (DWORD waited = 0; callsAgain == 0; waited += PAUSE)
    {
        if (waited > PATIENCE)
        {
            GiveUp("the timer didn't call");
        }
        Sleep(PAUSE);
    }
    return Output(nothing);
}

static BOOL SameBytes(const wchar_t* one, const wchar_t* other)
{
    FILE* const first = _wfopen(one, L"rb");
    FILE* const second = _wfopen(other, L"rb");
    BOOL same = first != NULL && second != NULL;
    for (int byte = 0; same && byte != EOF;)
    {
        byte = fgetc(first);
        same = byte == fgetc(second);
    }
    if (first != NULL)
    {
        fclose(first);
    }
    if (second != NULL)
    {
        fclose(second);
    }
    return same;
}

static void CallAmongOthers(ExecuteQuorvaneFunction function, const wchar_t* folder)
{
    wchar_t alone[MAX_PATH];
    Call(function, folder, 1);
    _snwprintf(alone, MAX_PATH, L"%ls.alone", outputFile);
    MoveFileExW(outputFile, alone, MOVEFILE_REPLACE_EXISTING);

    secondWindow = MakeWindow(WS_OVERLAPPEDWINDOW, NULL);
    lockedWindow = MakeWindow(WS_OVERLAPPEDWINDOW | WS_DISABLED, NULL);
    palette = MakeWindow(WS_POPUP | WS_CAPTION, mainWindow);
    SetActiveWindow(palette);
    Check(GetActiveWindow() == palette, "the palette isn't active", 0);
    calledAgain = function;
    _snwprintf(otherFolder, MAX_PATH, L"%ls/../river", folder);
    idleDialog = NULL;
    SetTimer(mainWindow, 1, 50, CallAgain);
    const HANDLE driver = CreateThread(NULL, 0, OutputAfterAnotherCall, NULL, 0, NULL);
    function(folder, 1);
    WaitForDriver(driver);
    Check(SameBytes(outputFile, alone), "the calls are mixed", 0);
    Check(GetActiveWindow() == palette, "the palette isn't active again", 0);
    Check(IsWindowEnabled(mainWindow), "the main window can't be worked again", 0);
    Check(IsWindowEnabled(palette), "the palette can't be worked again", 0);
    Check(IsWindowEnabled(secondWindow), "the second window can't be worked again", 0);
    Check(!IsWindowEnabled(lockedWindow), "the locked window can be worked", 0);
    DestroyWindow(palette);
    DestroyWindow(lockedWindow);
    DestroyWindow(secondWindow);
    SetActiveWindow(mainWindow);
    HandleMessages();
}

// What belongs to the host and is the same after a call

typedef HANDLE(WINAPI* GetDpiContext)(void);

struct OwnState
{
    wchar_t folder[MAX_PATH];
    char locale[256];
    LCID threadLocale;
    HANDLE activationContext;
    HANDLE dpiAwareness;
    HWND active;
    HWND focus;
    BOOL enabled;
    UINT errorMode;
};

static struct OwnState OwnState(void)
{
    struct OwnState state;
    memset(&state, 0, sizeof(state));
    GetCurrentDirectoryW(MAX_PATH, state.folder);
    snprintf(state.locale, sizeof(state.locale), "%s", setlocale(LC_ALL, NULL));
    state.threadLocale = GetThreadLocale();
    GetCurrentActCtx(&state.activationContext);
    if (state.activationContext != NULL)
    {
        ReleaseActCtx(state.activationContext);
    }
    const GetDpiContext dpi =
        (GetDpiContext)(void*)GetProcAddress(GetModuleHandleW(L"user32.dll"), "GetThreadDpiAwarenessContext");
    state.dpiAwareness = dpi != NULL ? dpi() : NULL;
    state.active = GetActiveWindow();
    state.focus = GetFocus();
    state.enabled = IsWindowEnabled(mainWindow);
    state.errorMode = GetErrorMode();
    return state;
}

static void CompareState(const struct OwnState* before, const struct OwnState* after, int call)
{
    Check(wcscmp(before->folder, after->folder) == 0, "another current folder", call);
    Check(strcmp(before->locale, after->locale) == 0, "another locale", call);
    Check(before->threadLocale == after->threadLocale, "another locale of the thread", call);
    Check(before->activationContext == after->activationContext, "another activation context", call);
    Check(before->dpiAwareness == after->dpiAwareness, "another DPI awareness", call);
    Check(before->active == after->active, "another active window", call);
    Check(before->focus == after->focus, "the focus is elsewhere", call);
    Check(after->enabled, "the main window is disabled", call);
    Check(GetCursor() != LoadCursorW(NULL, (const wchar_t*)IDC_WAIT), "the pointer still tells to wait", call);
    Check(before->errorMode == after->errorMode, "another error mode", call);
}

static void CheckComIsNotInUse(int call)
{
    const HRESULT result = CoInitializeEx(NULL, COINIT_APARTMENTTHREADED);
    Check(result == S_OK, "COM was left initialised", call);
    if (SUCCEEDED(result))
    {
        CoUninitialize();
    }
}

// What the process holds

enum Figure
{
    HANDLES,
    THREADS,
    GDI_OBJECTS,
    WINDOWS,
    MENUS,
    ICONS,
    CLASSES,
    PRIVATE_BYTES,
    RUNTIME_BLOCKS, // what the C runtime's heap holds: the module's memory and this host's
    RUNTIME_BYTES,
    OTHER_BYTES, // what the other heaps hold: the system's memory
    FIGURES
};

// How much a figure may grow with ten calls, and why.
struct Limit
{
    const char* name;
    intptr_t growth;
};

static const struct Limit LIMITS[FIGURES] = {
    [HANDLES] = {"handles", 0}, // and what the system's save dialog keeps by itself
    [THREADS] = {"threads", 0},
    [GDI_OBJECTS] = {"GDI objects", 0},
    [WINDOWS] = {"windows", 0},
    [MENUS] = {"menus", 0},
    [ICONS] = {"icons", 0},
    [CLASSES] = {"classes", 0},
    [PRIVATE_BYTES] = {"private bytes", 0x10000}, // the system deals it out in pieces of this size
    [RUNTIME_BLOCKS] = {"runtime blocks", 0},
    // The table of output surfaces keeps a row of 40 bytes for each of the two surfaces of every run.
    [RUNTIME_BYTES] = {"runtime bytes", CALLS_BETWEEN_COUNTS * 2 * 40},
    // Wine's labels with the present look never let go of 24 bytes each; a dialog has 27 of them, a save dialog 4.
    [OTHER_BYTES] = {"other heap bytes", CALLS_BETWEEN_COUNTS * 1024},
};

struct Figures
{
    intptr_t of[FIGURES];
};

static DWORD CountThreads(void)
{
    DWORD count = 0;
    THREADENTRY32 entry = {.dwSize = sizeof(entry)};
    const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
    for (BOOL more = Thread32First(snapshot, &entry); more; more = Thread32Next(snapshot, &entry))
    {
        count += entry.th32OwnerProcessID == GetCurrentProcessId();
    }
    CloseHandle(snapshot);
    return count;
}

// One entry of the table of GDI handles that each process has in its environment block.
struct GdiEntry
{
    uint64_t object;
    uint32_t owner;
    uint16_t generation;
    uint8_t type;
    uint8_t flags;
    uint64_t userPointer;
};

typedef const char*(WINAPI* GetBlock)(void);

static DWORD CountGdiObjects(void)
{
    const DWORD told = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    if (told != 0)
    {
        return told;
    }
    enum
    {
        TABLE_IN_BLOCK = 0xF8,
        ENTRIES = 0x4000
    };
    const GetBlock getBlock = (GetBlock)(void*)GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "RtlGetCurrentPeb");
    const char* const block = getBlock();
    const struct GdiEntry* const table = *(const struct GdiEntry* const*)(block + TABLE_IN_BLOCK);
    DWORD count = 0;
    for (int entry = 0; table != NULL && entry < ENTRIES; ++entry)
    {
        count += table[entry].type != 0;
    }
    return count;
}

// The system takes the lower half of a handle of windows, menus and icons for the whole, so all can be tried.
static void CountUserObjects(struct Figures* figures)
{
    for (uintptr_t handle = 0x20; handle < 0x10000; handle += 2)
    {
        DWORD process = 0;
        ICONINFO icon;
        if (IsWindow((HWND)handle))
        {
            GetWindowThreadProcessId((HWND)handle, &process);
            figures->of[WINDOWS] += process == GetCurrentProcessId();
        }
        else if (IsMenu((HMENU)handle))
        {
            ++figures->of[MENUS];
        }
        else if (GetIconInfo((HICON)handle, &icon))
        {
            DeleteObject(icon.hbmMask);
            DeleteObject(icon.hbmColor);
            ++figures->of[ICONS];
        }
    }
}

/// The classes that a module can make windows of: each name of a class is an atom.
static DWORD CountClasses(HMODULE module)
{
    DWORD count = 0;
    for (uintptr_t atom = 0xC000; atom <= 0xFFFF; ++atom)
    {
        WNDCLASSEXW found = {.cbSize = sizeof(found)};
        count += GetClassInfoExW(module, (const wchar_t*)atom, &found) != 0;
    }
    return count;
}

static void CountHeaps(struct Figures* figures)
{
    HANDLE heaps[64];
    const DWORD count = GetProcessHeaps(64, heaps);
    for (DWORD heap = 0; heap < count && heap < 64; ++heap)
    {
        const BOOL runtime = heaps[heap] == (HANDLE)_get_heap_handle();
        PROCESS_HEAP_ENTRY entry = {.lpData = NULL};
        HeapLock(heaps[heap]);
        while (HeapWalk(heaps[heap], &entry))
        {
            if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0)
            {
                figures->of[RUNTIME_BLOCKS] += runtime;
                figures->of[runtime ? RUNTIME_BYTES : OTHER_BYTES] += (intptr_t)entry.cbData;
            }
        }
        HeapUnlock(heaps[heap]);
    }
}

/// The memory that is this process's alone, whoever asked the system for it.
static intptr_t CountPrivateBytes(void)
{
    intptr_t bytes = 0;
    MEMORY_BASIC_INFORMATION region;
    for (const char* at = NULL; VirtualQuery(at, &region, sizeof(region)) != 0;
         at = (const char*)region.BaseAddress + region.RegionSize)
    {
        bytes += region.State == MEM_COMMIT && region.Type == MEM_PRIVATE ? (intptr_t)region.RegionSize : 0;
    }
    return bytes;
}

static DWORD CountHandles(void)
{
    DWORD count = 0;
    if (GetProcessHandleCount(GetCurrentProcess(), &count) && count != 0)
    {
        return count;
    }
    for (uintptr_t handle = 4; handle < 0x10000; handle += 4)
    {
        DWORD flags = 0;
        count += GetHandleInformation((HANDLE)handle, &flags) != 0;
    }
    return count;
}

static struct Figures Count(HMODULE module)
{
    struct Figures figures;
    memset(&figures, 0, sizeof(figures));
    figures.of[HANDLES] = (intptr_t)CountHandles();
    figures.of[THREADS] = (intptr_t)CountThreads();
    figures.of[GDI_OBJECTS] = (intptr_t)CountGdiObjects();
    CountUserObjects(&figures);
    figures.of[CLASSES] = (intptr_t)CountClasses(module);
    figures.of[PRIVATE_BYTES] = CountPrivateBytes();
    CountHeaps(&figures);
    return figures;
}

static void Print(int call, const struct Figures* figures)
{
    printf("after %d calls:", call);
    for (int figure = 0; figure < FIGURES; ++figure)
    {
        printf(" %s %lld%s", LIMITS[figure].name, (long long)figures->of[figure], figure < FIGURES - 1 ? "," : "\n");
    }
    fflush(stdout);
}

/// The handles that the system keeps of as many save dialogs as there are between two counts.
static intptr_t CountKeptHandles(void)
{
    intptr_t before = 0;
    for (int dialog = -2; dialog < CALLS_BETWEEN_COUNTS / 2; ++dialog)
    {
        before = dialog == 0 ? (intptr_t)CountHandles() : before;
        OpenSaveDialog();
    }
    return (intptr_t)CountHandles() - before;
}

static int CompareNumbers(const void* one, const void* other)
{
    const intptr_t first = *(const intptr_t*)one;
    const intptr_t second = *(const intptr_t*)other;
    return (first > second) - (first < second);
}

static intptr_t MedianGrowth(const struct Figures* counts, int figure)
{
    intptr_t growths[COUNTS - 1];
    for (int count = 1; count < COUNTS; ++count)
    {
        growths[count - 1] = counts[count].of[figure] - counts[count - 1].of[figure];
    }
    qsort(growths, COUNTS - 1, sizeof(growths[0]), CompareNumbers);
    return growths[(COUNTS - 1) / 2];
}

static void CompareFigures(const struct Figures* counts, intptr_t keptHandles)
{
    for (int figure = 0; figure < FIGURES; ++figure)
    {
        const intptr_t growth = MedianGrowth(counts, figure);
        const intptr_t limit = LIMITS[figure].growth + (figure == HANDLES ? keptHandles : 0);
        printf("%s: grew from %lld to %lld, with ten calls by %lld, which may be %lld\n", LIMITS[figure].name,
               (long long)counts[0].of[figure], (long long)counts[COUNTS - 1].of[figure], (long long)growth,
               (long long)limit);
        Check(growth <= limit, LIMITS[figure].name, CALLS);
    }
}

static DWORD WINAPI DoNothing(void* nothing)
{
    return nothing != NULL;
}

/// The module goes, with the classes that it had, and what it may have asked to be told of does no harm.
static void Unload(HMODULE module)
{
    FreeLibrary(module);
    Check(GetModuleHandleW(L"JLandXmlConvert.dll") == NULL, "the module is still loaded", CALLS);
    Check(CountClasses(module) == CountClasses(NULL), "a class of the module is left", CALLS);
    WaitForDriver(CreateThread(NULL, 0, DoNothing, NULL, 0, NULL));
}

int wmain(int count, wchar_t** arguments)
{
    if (count != 4)
    {
        return 2;
    }
    setlocale(LC_ALL, "");
    GetFullPathNameW(arguments[3], MAX_PATH, outputFile, NULL);
    MakeMainWindow();
    HandleMessages();
    const HMODULE module = LoadLibraryW(arguments[1]);
    if (module == NULL)
    {
        GiveUp("no module");
    }
    const ExecuteQuorvaneFunction function = (ExecuteQuorvaneFunction)(void*)GetProcAddress(module, "ExecuteQuorvane");
    CallAmongOthers(function, arguments[2]);
    const intptr_t keptHandles = CountKeptHandles();
    struct Figures counts[COUNTS];
    for (int call = 1; call <= CALLS; ++call)
    {
        const struct OwnState before = OwnState();
        Call(function, arguments[2], call);
        const struct OwnState after = OwnState();
        CompareState(&before, &after, call);
        CheckComIsNotInUse(call);
        if (call % CALLS_BETWEEN_COUNTS == 0)
        {
            struct Figures* const figures = &counts[call / CALLS_BETWEEN_COUNTS - 1];
            *figures = Count(module);
            Print(call, figures);
        }
    }
    CompareFigures(counts, keptHandles);
    Unload(module);
    DestroyWindow(mainWindow);
    return failures != 0;
}
