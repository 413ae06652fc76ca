#pragma once

/// The one place that includes <windows.h>. The build defines UNICODE, STRICT, NOMINMAX, WIN32_LEAN_AND_MEAN
/// and the system versions; what Windows names like our own methods is taken away again below.

#ifndef UNICODE
#define UNICODE
#endif
#ifndef _UNICODE
#define _UNICODE
#endif
#ifndef STRICT
#define STRICT
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif

#include <windows.h>

// Methods of ours bear these names; whoever wants the function of Windows calls it with its W.
#undef CreateDirectory
#undef CreateFile
#undef DeleteFile
#undef DrawText
#undef FindText
#undef GetClassName
#undef GetObject
#undef LoadImage
#undef MoveFile
#undef ReplaceText
#undef SendMessage
