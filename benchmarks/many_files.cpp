#include "many_files.hpp"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>

#include "texts.hpp"

namespace velk::bench {
namespace {

class ManyFiles {
public:
    ManyFiles() {
        std::string name = (std::filesystem::temp_directory_path() / "amesp-bench-XXXXXX").string();
        if (::mkdtemp(name.data()) == nullptr) {
            throw std::runtime_error("cannot make a temporary directory");
        }
        directory_ = name;
        constexpr std::size_t count = 10000;
        for (std::size_t i = 0; i < count; ++i) {
            paths_.push_back(directory_ + "/" + std::to_string(i) + ".inp");
            write(paths_.back(), small_text());
        }
        schema_ = directory_ + "/schema.yaml";
        write(schema_, schema_text());
    }
    ManyFiles(const ManyFiles&) = delete;
    ManyFiles& operator=(const ManyFiles&) = delete;
    ~ManyFiles() {
        std::error_code ignored;
        std::filesystem::remove_all(directory_, ignored);
    }

    const std::vector<std::string>& paths() const noexcept { return paths_; }
    const std::string& schema() const noexcept { return schema_; }

private:
    static void write(const std::string& path, const std::string& text) {
        std::FILE* const file = std::fopen(path.c_str(), "w");
        if (file == nullptr || std::fwrite(text.data(), 1, text.size(), file) != text.size() ||
            std::fclose(file) != 0) {
            throw std::runtime_error("cannot write the files of the benchmark");
        }
    }

    std::string directory_;
    std::vector<std::string> paths_;
    std::string schema_;
};

const ManyFiles& files() {
    static const ManyFiles made;
    return made;
}

}  // namespace

const std::vector<std::string>& many_files() {
    return files().paths();
}

const std::string& schema_file() {
    return files().schema();
}

}  // namespace velk::bench
