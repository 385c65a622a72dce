// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// A host whose compiler decorates names and passes arguments as Microsoft's does, linked with the
// packaged ogl.lib, and of the system with nothing but ExitProcess. Its exit code is 42, or the
// step that failed.
#define IMPORTED __declspec(dllimport)

struct INDEX;
struct POINT3D;
struct LIST {
    unsigned char bytes[20];
    IMPORTED void __stdcall Create(int growBy, int elementSize);
};
struct VLIST {
    unsigned char bytes[40];
    IMPORTED void __stdcall Create(int growBy, int itemSize, int itemsPerCluster);
    IMPORTED void* __stdcall UseCluster(INDEX* index, long cluster);
    IMPORTED void* __stdcall UseCluster(long cluster, long* count);
};
struct SCENE {
    unsigned char bytes[17461];
    IMPORTED POINT3D* __stdcall UsePath(long path, long* count);
};
class CWaitCursor {
  public:
    int member;
    IMPORTED CWaitCursor& operator=(const CWaitCursor&);
};

extern "C" {
IMPORTED void* d3_Create(void*, unsigned, const char*);
IMPORTED void d3_Release(void*);
IMPORTED int d3_DrawInWindow(void*, SCENE*, unsigned, int, void*, void*);
IMPORTED int d3_DrawInDibSection(void*, SCENE*, unsigned, void*);
IMPORTED int d3_DrawInFile(void*, SCENE*, unsigned, int, int, const char*);
IMPORTED int d3_GetPickedObjects(SCENE*, int, int, int, int, int**, int*);
IMPORTED int d3_ExportJS(SCENE*, const char*, int, int);
IMPORTED int d3_CreateTextureFromFile();
IMPORTED void* d3_CreateTextureFromFileInMemory(void*, const void*, int, int, int, int, int, int);
IMPORTED void d3_ReleasePointer(void*, void**, int);
IMPORTED int di_GetState(void*, void*);

// The library's window has a thread of its own, which a mere return would wait for.
IMPORTED void __stdcall ExitProcess(unsigned);
}

static LIST list;
static VLIST clusters;
static SCENE scene;
static unsigned char picture[40 + 4] = {40, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 24};

static int callEach() {
    list.Create(7, 14);
    if (list.bytes[6] != 7 || list.bytes[12] != 14)
        return 1;
    clusters.Create(5, 64, 3);
    if (clusters.bytes[26] != 15 || clusters.bytes[32] != 64)
        return 2;
    long count = -1;
    if (clusters.UseCluster(1, &count) != nullptr || count != 0)
        return 3;
    if (clusters.UseCluster(static_cast<INDEX*>(nullptr), 1) != nullptr)
        return 4;
    count = -1;
    if (scene.UsePath(0, &count) != nullptr || count != 0)
        return 5;
    CWaitCursor to, from;
    to.member = 1;
    from.member = 2;
    if (&(to = from) != &to || to.member != 2)
        return 6;
    void* image =
        d3_CreateTextureFromFileInMemory(nullptr, picture, sizeof picture, 0, 8, 1, 1, 24);
    if (image == nullptr)
        return 7;
    d3_ReleasePointer(nullptr, &image, 1);
    int* picked = nullptr;
    int hits = -1;
    if (image != nullptr || d3_GetPickedObjects(&scene, 8, 8, 4, 4, &picked, &hits) != 1 ||
        hits != 0)
        return 8;
    if (d3_CreateTextureFromFile() != 0 || d3_ExportJS(nullptr, "x.js", 8, 8) != 0)
        return 9;
    unsigned char state[272];
    if (di_GetState(nullptr, state) != 0)
        return 10;
    void* const view = d3_Create(nullptr, 0, "space.ini");
    if (view == nullptr || d3_DrawInWindow(view, &scene, 1, 1, nullptr, nullptr) != 1 ||
        d3_DrawInDibSection(view, &scene, 1, nullptr) != 1 ||
        d3_DrawInFile(view, &scene, 1, 8, 8, "microsoft.bmp") != 1)
        return 11;
    d3_Release(view);
    return 42;
}

extern "C" void __stdcall start() {
    ExitProcess(static_cast<unsigned>(callEach()));
}
