#include "app/ProcessEntry.h"

int main(int argc, char** argv) {
    return qpt::RunProcess(argc, argv);
}
