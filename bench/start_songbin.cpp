#include "bench/support/firstpaint.h"

#undef main

int songbinMain(int argc, char** argv);

Q_COREAPP_STARTUP_FUNCTION(endAtFirstPaint)

int main(int argc, char** argv)
{
    return songbinMain(argc, argv);
}
