// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT
//
// What do icons by name cost for the actions of a large application, when they are made and when
// they are brought to another size? Each pass serves 300 actions and starts with an empty pixmap
// cache, as an application does; an icon counts when its pixmaps are at hand.

#include "ui_base/qtui/qtuitoolkit.h"

#include "support/runbenchmarks.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QPixmapCache>

#include <benchmark/benchmark.h>

#include <deque>

using namespace Lumo::Bench;
using Vela::UiBase::EIconType;
using Vela::UiBase::QtUiToolkit;

namespace {

constexpr int actionCount = 300;
constexpr QSize smallSize(20, 20);
constexpr QSize largeSize(28, 28);

const QString folder = QStringLiteral(":/resources/images/");

QString suffix(EIconType type)
{
    return type == EIconType::IconPng ? QStringLiteral(".png") : QStringLiteral(".svg");
}

/// Names of the library's own icons that have both a normal and an active state.
QStringList iconNames(EIconType type)
{
    const QString normalEnd = QStringLiteral("_normal") + suffix(type);
    QStringList names;
    for (const QString &file : QDir(folder).entryList({QStringLiteral("*") + normalEnd})) {
        const QString name = file.chopped(normalEnd.size());
        if (QFile::exists(folder + name + QStringLiteral("_active") + suffix(type)))
            names.append(name);
    }
    return names;
}

/// What one action needs in either way.
struct Item
{
    QAction action;
    QString name;
    QString normal;
    QString active;
};

/// What a program writes that does without the toolkit.
template<EIconType type>
struct PlainIcons
{
    static QIcon create(Item &item, const QSize &size) { return icon(item, size); }
    static void resize(Item &item, const QSize &size) { item.action.setIcon(icon(item, size)); }

private:
    static QIcon icon(const Item &item, const QSize &size)
    {
        QIcon icon;
        if (type == EIconType::IconSvg) {
            icon.addFile(item.normal, size, QIcon::Normal);
            icon.addFile(item.active, size, QIcon::Active);
        } else {
            icon.addPixmap(pixmap(item.normal, size), QIcon::Normal);
            icon.addPixmap(pixmap(item.active, size), QIcon::Active);
        }
        return icon;
    }

    static QPixmap pixmap(const QString &path, const QSize &size)
    {
        const QPixmap drawn(path);
        return size.isEmpty() ? drawn
                              : drawn.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    }
};

template<EIconType type>
struct ToolkitIcons
{
    static QIcon create(Item &item, const QSize &size)
    {
        return QtUiToolkit::Instance().CreateIcon(item.name, &item.action, type, size);
    }

    static void resize(Item &item, const QSize &size)
    {
        QtUiToolkit::Instance().UpdateIconSize(&item.action, size);
    }
};

template<EIconType type>
std::deque<Item> makeItems()
{
    const QStringList names = iconNames(type);
    std::deque<Item> items(names.isEmpty() ? 0 : actionCount);
    for (int i = 0; i < static_cast<int>(items.size()); ++i) {
        Item &item = items[static_cast<std::size_t>(i)];
        item.name = names.at(i % names.size());
        item.normal = folder + item.name + QStringLiteral("_normal") + suffix(type);
        item.active = folder + item.name + QStringLiteral("_active") + suffix(type);
    }
    return items;
}

bool hasPixmaps(const QIcon &icon, const QSize &size)
{
    return !icon.pixmap(size, QIcon::Normal).isNull() && !icon.pixmap(size, QIcon::Active).isNull();
}

template<template<EIconType> class Icons, EIconType type>
void create(benchmark::State &state)
{
    std::deque<Item> items = makeItems<type>();
    const QSize size = type == EIconType::IconSvg ? smallSize : QSize();
    std::int64_t made = 0;
    while (state.KeepRunningBatch(actionCount)) {
        QPixmapCache::clear();
        for (Item &item : items)
            made += hasPixmaps(Icons<type>::create(item, size), smallSize);
    }
    if (made != static_cast<std::int64_t>(state.iterations()))
        state.SkipWithError("an icon is missing");
}

template<template<EIconType> class Icons, EIconType type>
void resize(benchmark::State &state)
{
    std::deque<Item> items = makeItems<type>();
    for (Item &item : items)
        item.action.setIcon(Icons<type>::create(item, smallSize));
    QSize size = smallSize;
    std::int64_t made = 0;
    while (state.KeepRunningBatch(actionCount)) {
        QPixmapCache::clear();
        size = size == smallSize ? largeSize : smallSize;
        for (Item &item : items) {
            Icons<type>::resize(item, size);
            made += hasPixmaps(item.action.icon(), size);
        }
    }
    if (made != static_cast<std::int64_t>(state.iterations()))
        state.SkipWithError("an icon is missing");
}

/// Icons that have the size asked for already, as when a bar is laid out anew: nothing to make.
template<typename Keep>
void keepSize(benchmark::State &state, Keep keep)
{
    std::deque<Item> items = makeItems<EIconType::IconPng>();
    for (Item &item : items)
        item.action.setIcon(ToolkitIcons<EIconType::IconPng>::create(item, QSize()));
    const QSize size = items.empty() ? QSize() : items.front().action.icon().actualSize({300, 300});
    while (state.KeepRunningBatch(actionCount)) {
        for (Item &item : items)
            keep(item.action, size);
    }
    if (size.isEmpty())
        state.SkipWithError("an icon is missing");
}

void keepSizeProbe(benchmark::State &state)
{
    keepSize(state, [](const QAction &action, const QSize &) {
        benchmark::DoNotOptimize(action.icon().actualSize({300, 300}));
    });
}

void keepSizeToolkit(benchmark::State &state)
{
    keepSize(state, [](QAction &action, const QSize &size) {
        QtUiToolkit::Instance().UpdateIconSize(&action, size);
    });
}

constexpr EIconType png = EIconType::IconPng;
constexpr EIconType svg = EIconType::IconSvg;

BENCHMARK_TEMPLATE(create, PlainIcons, png)->Name("createPngQt");
BENCHMARK_TEMPLATE(create, ToolkitIcons, png)->Name("createPngToolkit");
BENCHMARK_TEMPLATE(create, PlainIcons, svg)->Name("createSvgQt");
BENCHMARK_TEMPLATE(create, ToolkitIcons, svg)->Name("createSvgToolkit");

BENCHMARK_TEMPLATE(resize, PlainIcons, png)->Name("resizePngQt");
BENCHMARK_TEMPLATE(resize, ToolkitIcons, png)->Name("resizePngToolkit");
BENCHMARK_TEMPLATE(resize, PlainIcons, svg)->Name("resizeSvgQt");
BENCHMARK_TEMPLATE(resize, ToolkitIcons, svg)->Name("resizeSvgToolkit");

BENCHMARK(keepSizeProbe);
BENCHMARK(keepSizeToolkit);

} // namespace

int main(int argc, char **argv)
{
    const QApplication app(argc, argv);
    return runBenchmarks(argc, argv);
}
