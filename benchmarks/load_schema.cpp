// A program that does nothing but load a schema with yaml-cpp.
#include <yaml-cpp/yaml.h>

int main(int argc, char** argv) {
    return argc == 2 && YAML::LoadFile(argv[1]).IsMap() ? 0 : 1;
}
