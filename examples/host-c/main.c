/* A host: hands a work folder over to the module and waits until its user has closed the dialog.
 *
 *   host-c WORK_FOLDER [ROUTES]
 *
 * A design application writes the work folder just before the call, in the user's temporary folder, and removes it
 * afterwards. Here it is one that is there, such as examples/road with 1 route. */
#include <jlandxml/JLandXmlConvert.h>

#include <locale.h>
#include <stdio.h>
#include <stdlib.h>

static int Convert(const wchar_t* folder, int32_t routes)
{
    ExecuteQuorvane(folder, routes);
    /* The call tells nothing, neither success nor cancel: the user has seen it. */
    puts("The dialog was closed.");
    return 0;
}

#ifdef _WIN32

int wmain(int count, wchar_t** arguments)
{
    if (count < 2)
    {
        fputs("host-c WORK_FOLDER [ROUTES]\n", stderr);
        return 2;
    }
    return Convert(arguments[1], count > 2 ? (int32_t)wcstol(arguments[2], NULL, 10) : 0);
}

#else

int main(int count, char** arguments)
{
    wchar_t folder[4096];
    setlocale(LC_CTYPE, ""); /* arguments are bytes of the user's locale */
    if (count < 2 || mbstowcs(folder, arguments[1], 4096) >= 4096)
    {
        fputs("host-c WORK_FOLDER [ROUTES]\n", stderr);
        return 2;
    }
    return Convert(folder, count > 2 ? (int32_t)strtol(arguments[2], NULL, 10) : 0);
}

#endif
