#include <cstdio>

int main() {
    std::puts("sorvo " SORVO_VERSION);
    return 0;
}
