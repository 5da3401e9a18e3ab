#include "support/TestWindow.h"

int main(int argc, char** argv) {
    return brimlet::test::runWindowTests(argc, argv);
}
