// Checksums, digests and Base64 beside libdeflate, zlib, OpenSSL and nettle, with the ratio to each goal's
// peer.

#include <fcntl.h>
#include <libdeflate.h>
#include <nettle/md5.h>
#include <openssl/evp.h>
#include <unistd.h>
#include <zlib.h>

#include <cstdio>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "compare.h"
#include "nexo/base/CString.h"
#include "nexo/text/Base64.h"
#include "nexo/text/Base64Kernels.h"
#include "nexo/text/Crc32.h"
#include "nexo/text/Crc32Kernels.h"
#include "nexo/text/Hashing.h"
#include "nexo/text/Md5.h"

namespace {

using nexo::bench::Comparison;

std::vector<unsigned char> RandomBytes(std::size_t n) {
    std::mt19937 random(1);
    std::vector<unsigned char> bytes(n);
    for (unsigned char& byte : bytes) byte = static_cast<unsigned char>(random());
    return bytes;
}

/// Times are printed for 1,024 bytes.
constexpr std::size_t kKilo = 1024;

/// A file of 64 MB in the page cache.
class BigFile {
public:
    BigFile() {
        std::FILE* file = std::fopen(name.c_str(), "wb");
        const auto bytes = RandomBytes(1 << 20);
        for (int i = 0; i < 64; ++i) std::fwrite(bytes.data(), 1, bytes.size(), file);
        std::fclose(file);
    }
    ~BigFile() { unlink(name.c_str()); }

    static constexpr std::size_t size = 64 << 20;
    const std::string name = "/tmp/nexo-hash-bench." + std::to_string(getpid());
    const CString path{name.c_str()};

    /// Reads it by blocks.
    template <class Take>
    void Read(std::size_t blockSize, Take take) const {
        static std::vector<unsigned char> block(1 << 20);
        const int file = open(name.c_str(), O_RDONLY | O_CLOEXEC);
        for (ssize_t n; (n = read(file, block.data(), blockSize)) > 0;)
            take(block.data(), static_cast<std::size_t>(n));
        close(file);
    }
};

/// The plainest form: one table, one byte after the other.
std::uint32_t CrcByBytes(std::uint32_t crc, const unsigned char* data, std::size_t n) {
    static const z_crc_t* table = get_crc_table();
    crc = ~crc;
    for (; n > 0; --n) crc = crc >> 8 ^ static_cast<std::uint32_t>(table[(crc ^ *data++) & 255]);
    return ~crc;
}

void CompareCrcInMemory(std::size_t size) {
    const auto bytes = RandomBytes(size);
    const std::size_t repeats = (1 << 20) / size;
    const auto times = [=](auto crc) {
        return [=] {
            std::size_t sum = 0;
            for (std::size_t i = 0; i < repeats; ++i) sum += crc();
            return sum;
        };
    };
    const auto* data = bytes.data();
    Comparison table("CRC-32, blocks of " + std::to_string(size) + " bytes, each 1,024 bytes",
                     (1 << 20) / kKilo);
    table.Add("Crc32", times([=] { return nexo::Crc32(data, size); }));
    for (const nexo::Crc32Kernel& kernel : nexo::Crc32Kernels())
        table.Add(std::string("  by ") + kernel.name, times([=] { return ~kernel.update(~0u, data, size); }));
    table.Peer("libdeflate", size < 256 ? 0 : 1.0, times([=] { return libdeflate_crc32(0, data, size); }));
    table.Peer("zlib", 0, times([=] { return crc32(0, data, static_cast<uInt>(size)); }));
    table.Peer("one table", 0, times([=] { return CrcByBytes(0, data, size); }));
    table.Print();
}

void CompareCrcOfFile() {
    const BigFile file;
    const auto byLibdeflate = [&](std::size_t block) {
        return [&file, block] {
            std::uint32_t crc = 0;
            file.Read(block, [&](const unsigned char* data, std::size_t n) {
                crc = libdeflate_crc32(crc, data, n);
            });
            return std::size_t{crc};
        };
    };
    Comparison table("CRC-32 of a cached file of 64 MB, each 1,024 bytes", BigFile::size / kKilo);
    table.Add("FileCrc32Win32", [&] {
        unsigned long crc = 0;
        CCrc32::FileCrc32Win32(file.path, crc);
        return std::size_t{crc};
    });
    table.Peer("libdeflate, blocks of 64 KiB", 1.0, byLibdeflate(65536));
    table.Peer("libdeflate, blocks of 4 KiB", 0, byLibdeflate(4096));
    table.Peer("one table, blocks of 4 KiB", 1.0 / 16, [&] {
        std::uint32_t crc = 0;
        file.Read(4096, [&](const unsigned char* data, std::size_t n) { crc = CrcByBytes(crc, data, n); });
        return std::size_t{crc};
    });
    table.Peer("read only, blocks of 64 KiB", 0, [&] {
        std::size_t sum = 0;
        file.Read(65536, [&](const unsigned char* data, std::size_t n) { sum += data[n / 2]; });
        return sum;
    });
    table.Print(9);
}

void CompareMd5OfFile() {
    const BigFile file;
    EVP_MD_CTX* context = EVP_MD_CTX_new();
    unsigned char digest[EVP_MAX_MD_SIZE];
    Comparison table("MD5 of a cached file of 64 MB, each 1,024 bytes", BigFile::size / kKilo);
    table.Add("md5_file", [&] { return static_cast<std::size_t>(CHashing::md5_file(file.path)[3]); });
    table.Peer("OpenSSL, blocks of 64 KiB", 1 / 0.98, [&] {
        EVP_DigestInit_ex(context, EVP_md5(), nullptr);
        file.Read(65536,
                  [&](const unsigned char* data, std::size_t n) { EVP_DigestUpdate(context, data, n); });
        EVP_DigestFinal_ex(context, digest, nullptr);
        return std::size_t{digest[3]};
    });
    table.Peer("nettle, blocks of 64 KiB", 0, [&] {
        md5_ctx md5;
        md5_init(&md5);
        file.Read(65536, [&](const unsigned char* data, std::size_t n) { md5_update(&md5, n, data); });
        md5_digest(&md5, MD5_DIGEST_SIZE, digest);
        return std::size_t{digest[3]};
    });
    table.Print(9);
    EVP_MD_CTX_free(context);
}

void CompareMd5OfText() {
    constexpr std::size_t count = 10000;
    const CString text = L"Heizkreis 12: 55/45 ";
    const std::string bytes(40, 'x');
    EVP_MD_CTX* context = EVP_MD_CTX_new();
    unsigned char digest[EVP_MAX_MD_SIZE];
    Comparison table("MD5 of a text of 20 characters", count);
    table.Add("md5, digits included", [&] {
        std::size_t sum = 0;
        for (std::size_t i = 0; i < count; ++i)
            sum += static_cast<std::size_t>(CHashing::md5(text).GetString()[3]);
        return sum;
    });
    table.Peer("nettle, digest alone", 1.1, [&] {
        std::size_t sum = 0;
        for (std::size_t i = 0; i < count; ++i) {
            md5_ctx md5;
            md5_init(&md5);
            md5_update(&md5, bytes.size(), reinterpret_cast<const std::uint8_t*>(bytes.data()));
            md5_digest(&md5, MD5_DIGEST_SIZE, digest);
            sum += digest[3];
        }
        return sum;
    });
    table.Peer("OpenSSL with kept context", 0, [&] {
        std::size_t sum = 0;
        for (std::size_t i = 0; i < count; ++i) {
            EVP_DigestInit_ex(context, EVP_md5(), nullptr);
            EVP_DigestUpdate(context, bytes.data(), bytes.size());
            EVP_DigestFinal_ex(context, digest, nullptr);
            sum += digest[3];
        }
        return sum;
    });
    table.Print();
    EVP_MD_CTX_free(context);
}

constexpr int kBase64Bytes = 3 << 16;  // 256 KiB of text

void CompareBase64() {
    const auto bytes = RandomBytes(kBase64Bytes);
    std::vector<char> text(static_cast<std::size_t>(base64::encode_get_length(kBase64Bytes)));
    std::vector<unsigned char> back(kBase64Bytes + 64);
    const auto length = static_cast<int>(text.size()) - 1;
    const auto encode = [&] {
        base64::encode(bytes.data(), kBase64Bytes, text.data());
        return static_cast<std::size_t>(text[77]);
    };
    const auto decode = [&] {
        int n = 0;
        base64::decode(text.data(), back.data(), n);
        return static_cast<std::size_t>(n);
    };
    for (const nexo::Base64Kernel& kernel : nexo::Base64Kernels()) {
        nexo::UseBase64Kernel(kernel);
        const bool best = &kernel == &nexo::Base64Kernels().front();
        Comparison encoding(
            std::string("Base64 encoding of 192 KiB by ") + kernel.name + ", each 1,024 bytes",
            kBase64Bytes / kKilo);
        encoding.Add("encode", encode);
        encoding.Peer("OpenSSL EVP_EncodeBlock", best ? 1.0 / 8 : 0, [&] {
            return static_cast<std::size_t>(
                EVP_EncodeBlock(reinterpret_cast<unsigned char*>(text.data()), bytes.data(), kBase64Bytes));
        });
        encoding.Print(60);
        Comparison decoding(
            std::string("Base64 decoding to 192 KiB by ") + kernel.name + ", each 1,024 bytes",
            kBase64Bytes / kKilo);
        decoding.Add("decode", decode);
        decoding.Peer("OpenSSL EVP_DecodeBlock", best ? 1.0 / 8 : 0, [&] {
            return static_cast<std::size_t>(
                EVP_DecodeBlock(back.data(), reinterpret_cast<unsigned char*>(text.data()), length));
        });
        decoding.Print(60);
    }
    nexo::UseBase64Kernel(nexo::Base64Kernels().front());
}

/// Texts beside the narrow form with its text narrowed and widened in passes of their own.
void CompareBase64OfTexts() {
    constexpr int units = kBase64Bytes / 2;
    CString text(L'\x20AC', units), encoded, back;
    base64::encode_string(text, encoded);
    std::vector<unsigned char> bytes(kBase64Bytes);
    std::vector<char> narrow(static_cast<std::size_t>(encoded.GetLength()) + 1);
    Comparison encoding("Base64 encoding of a text of 96 Ki units, each unit", units);
    encoding.Add("encode_string",
                 [&] { return static_cast<std::size_t>(base64::encode_string(text, encoded)); });
    encoding.Peer("three passes", 1.0, [&] {
        for (std::size_t i = 0; i < units; ++i) {
            bytes[2 * i] = static_cast<unsigned char>(text.GetString()[i]);
            bytes[2 * i + 1] = static_cast<unsigned char>(text.GetString()[i] >> 8);
        }
        base64::encode(bytes.data(), kBase64Bytes, narrow.data());
        CString out;
        std::copy(narrow.begin(), narrow.end() - 1,
                  out.GetBufferSetLength(static_cast<int>(narrow.size()) - 1));
        return static_cast<std::size_t>(out.GetLength());
    });
    encoding.Print(60);
    Comparison decoding("Base64 decoding to a text of 96 Ki units, each unit", units);
    decoding.Add("decode_string",
                 [&] { return static_cast<std::size_t>(base64::decode_string(encoded, back)); });
    decoding.Peer("three passes", 1.0, [&] {
        const wchar_t* in = encoded.GetString();
        for (std::size_t i = 0; i + 1 < narrow.size(); ++i) narrow[i] = static_cast<char>(in[i]);
        int n = 0;
        base64::decode(narrow.data(), bytes.data(), n);
        CString out;
        wchar_t* to = out.GetBufferSetLength(n / 2);
        for (int i = 0; i < n / 2; ++i)
            to[i] = static_cast<wchar_t>(bytes[static_cast<std::size_t>(2 * i)] |
                                         bytes[static_cast<std::size_t>(2 * i + 1)] << 8);
        return static_cast<std::size_t>(out.GetLength());
    });
    decoding.Print(60);
}

}  // namespace

int main() {
    for (const std::size_t size : {64u, 1024u, 65536u}) CompareCrcInMemory(size);
    CompareCrcOfFile();
    CompareMd5OfFile();
    CompareMd5OfText();
    CompareBase64();
    CompareBase64OfTexts();
}
