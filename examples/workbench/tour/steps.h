// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

namespace Workbench {

class TourGuide;

/// The stretches of the tour, in their order. Each begins and ends with the bunny, or what is open
/// instead, in a shaded view from the front, and with no tool at work.

/// The window before and after a mesh is open.
void visitStart(TourGuide &guide);
/// Every menu.
void visitMenus(TourGuide &guide);
/// The buttons, and the card of one of them.
void visitCommandBar(TourGuide &guide);
/// The display modes, of which one is on, and the attributes.
void visitDisplay(TourGuide &guide);
/// Each tool with its button, and the cursors.
void visitTools(TourGuide &guide);
/// The commands that change the mesh, and how they hold each other.
void visitEdits(TourGuide &guide);
/// The commands with panels: opened, applied, reset, closed, and one in place of the other.
void visitFlyouts(TourGuide &guide);
/// The view that is presented over the view.
void visitComparison(TourGuide &guide);
/// The message over the view, while the window moves and is minimised.
void visitNotifications(TourGuide &guide);
/// The dialogs beside the work: preferences, log and about.
void visitDialogs(TourGuide &guide);
/// Another language and back, and what is read meanwhile.
void visitLanguages(TourGuide &guide);
/// The bars around the view: menu, key, row for selected faces, and how they slide.
void visitBars(TourGuide &guide);
/// Files that can't be read, another file during a run, and saving.
void visitFiles(TourGuide &guide);
/// An image in place of the mesh, and the folder that it comes from.
void visitImages(TourGuide &guide);
/// The question about changes, and the end.
void visitClosing(TourGuide &guide);

} // namespace Workbench
