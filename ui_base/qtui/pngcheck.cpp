// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/qtui/pngcheck_p.h"

#include <QByteArray>
#include <QtEndian>

#include <array>

namespace Vela::UiBase::Internal {
namespace {

// A chunk is a length of 4 bytes, a type of 4 bytes, that many bytes of data, and a checksum of
// type and data.
constexpr int wordSize = 4;
constexpr int chunkFrameSize = 3 * wordSize;
constexpr char signature[] = "\x89PNG\r\n\x1a\n";
constexpr int signatureSize = sizeof signature - 1;

constexpr std::array<quint32, 256> makeCrcTable()
{
    std::array<quint32, 256> table {};
    for (quint32 n = 0; n < table.size(); ++n) {
        quint32 value = n;
        for (int bit = 0; bit < 8; ++bit)
            value = (value & 1) ? 0xedb88320U ^ (value >> 1) : value >> 1;
        table[n] = value;
    }
    return table;
}

constexpr std::array<quint32, 256> crcTable = makeCrcTable();

quint32 crcOf(const char *data, int size)
{
    quint32 crc = 0xffffffffU;
    for (int i = 0; i < size; ++i)
        crc = crcTable[(crc ^ quint8(data[i])) & 0xff] ^ (crc >> 8);
    return ~crc;
}

quint32 wordAt(const QByteArray &png, int offset)
{
    return qFromBigEndian<quint32>(png.constData() + offset);
}

bool hasChunkType(const QByteArray &png, int chunk, const char *type)
{
    return qstrncmp(png.constData() + chunk + wordSize, type, wordSize) == 0;
}

/// The offset behind the chunk at @p chunk, or -1 when it is cut off or its checksum is wrong.
int chunkEnd(const QByteArray &png, int chunk)
{
    const int left = png.size() - chunk - chunkFrameSize;
    if (left < 0 || wordAt(png, chunk) > quint32(left))
        return -1;
    const int dataSize = int(wordAt(png, chunk));
    const int checksum = chunk + 2 * wordSize + dataSize;
    const quint32 crc = crcOf(png.constData() + chunk + wordSize, wordSize + dataSize);
    return crc == wordAt(png, checksum) ? checksum + wordSize : -1;
}

} // namespace

bool isPng(const QByteArray &file)
{
    return file.startsWith(signature);
}

bool isIntactPng(const QByteArray &png)
{
    int chunk = signatureSize;
    for (int end = chunkEnd(png, chunk); end > 0; end = chunkEnd(png, chunk)) {
        if (hasChunkType(png, chunk, "IEND"))
            return true;
        chunk = end;
    }
    return false;
}

} // namespace Vela::UiBase::Internal
