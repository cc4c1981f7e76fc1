#include "output/holder/HolderMain.h"

int main(int argc, char** argv) {
    return qpt::holder::RunHolder(argc, argv);
}
