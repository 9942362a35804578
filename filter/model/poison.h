#pragma once
// Included before every source of the filter by the build. After these headers, calls that overrun
// a buffer, keep hidden state, ask the locale or take memory past the host do not compile.
// A standard header that names one of the words must be listed above the pragma.

#include <algorithm>
#include <cctype>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <functional>
#include <memory>
#include <new>
#include <string>
#include <system_error>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#pragma GCC poison strcpy strcat strncpy strncat stpcpy sprintf vsprintf snprintf vsnprintf
#pragma GCC poison gets scanf sscanf fscanf strtok strtok_r strdup strndup
#pragma GCC poison atof atoi atol atoll strtod strtof strtold strtol strtoul strtoll strtoull
#pragma GCC poison setlocale localeconv strcoll strxfrm strcasecmp strncasecmp stricmp strnicmp
#pragma GCC poison isalnum isalpha isblank iscntrl isdigit isgraph islower isprint ispunct isspace
#pragma GCC poison isupper isxdigit tolower toupper
#pragma GCC poison malloc calloc realloc
#pragma GCC poison fopen fread fwrite fclose printf fprintf puts getenv system rand srand
