// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/BaseView>
#include <ui_base/BaseViewController>
#include <ui_base/CmdsViewController>

#include "support/testcase.h"
#include "support/testmain.h"

#include <QPointer>
#include <QWidget>

using Vela::UiBase::BaseView;
using Vela::UiBase::BaseViewController;
using Vela::UiBase::CmdsViewController;

namespace {

BaseView *makeView(QWidget *parent = nullptr)
{
    return new BaseView(parent, Qt::WindowFlags());
}

} // namespace

class TestBaseView : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void widgetOwnsTheView()
    {
        const QPointer<BaseView> view = makeView();
        QCOMPARE(view->parent(), view->getQtWidget());
        QVERIFY(view->getQtWidget()->testAttribute(Qt::WA_DeleteOnClose));
        view->getQtWidget()->close();
        QTRY_VERIFY(!view);
    }

    void widgetHasTheParentAndFlagsAskedFor()
    {
        QWidget parent;
        const BaseView *const view = new BaseView(&parent, Qt::Tool);
        QCOMPARE(view->getQtWidget()->parentWidget(), &parent);
        QCOMPARE(view->getQtWidget()->windowType(), Qt::Tool);
        const BaseView *const child =
            new BaseView(BaseView::getBaseViewOfQtWidget(view->getQtWidget()), Qt::WindowFlags());
        QCOMPARE(child->getQtWidget()->parentWidget(), view->getQtWidget());
    }

    void viewWithoutParentViewIsAWindow()
    {
        const BaseView *const view = new BaseView(static_cast<BaseView *>(nullptr), Qt::Window);
        QVERIFY(view->getQtWidget()->isWindow());
        delete view->getQtWidget();
    }

    void viewIsFoundByItsOwnWidgetOnly()
    {
        const BaseView *const view = makeView();
        QWidget *const child = new QWidget(view->getQtWidget());
        const BaseView *const inner = makeView(child);
        QCOMPARE(BaseView::getBaseViewOfQtWidget(view->getQtWidget()), view);
        QCOMPARE(BaseView::getBaseViewOfQtWidget(inner->getQtWidget()), inner);
        QCOMPARE(BaseView::getBaseViewOfQtWidget(child), nullptr);
        QCOMPARE(BaseView::getBaseViewOfQtWidget(nullptr), nullptr);
        delete view->getQtWidget();
    }

    void viewOwnsItsController()
    {
        BaseView *const view = makeView();
        const QPointer<BaseViewController> controller = new BaseViewController(view);
        QCOMPARE(view->getViewController(), controller.data());
        QCOMPARE(controller->getView(), view);
        QCOMPARE(controller->getQtWidget(), view->getQtWidget());
        QCOMPARE(controller->weak_from_this().use_count(), 1L);
        delete view->getQtWidget();
        QVERIFY(!controller);
    }

    void sharedControllerOutlivesItsView()
    {
        BaseView *const view = makeView();
        const auto controller = std::make_shared<BaseViewController>(nullptr);
        controller->setView(view);
        QCOMPARE(view->getViewController(), controller.get());
        delete view->getQtWidget();
        QCOMPARE(controller->getView(), nullptr);
        QCOMPARE(controller->getQtWidget(), nullptr);
    }

    void controllerMakesItsOwnView()
    {
        const QPointer<BaseViewController> controller = new BaseViewController;
        QVERIFY(controller->getQtWidget()->isWindow());
        delete controller->getQtWidget();
        QVERIFY(!controller);
    }

    void movedControllerClosesItsEarlierView()
    {
        const QPointer<BaseView> earlier = makeView();
        BaseView *const later = makeView();
        const QPointer<BaseViewController> controller = new BaseViewController(earlier);
        controller->setView(nullptr);
        QCOMPARE(controller->getView(), earlier.data());
        controller->setView(later);
        QTRY_VERIFY(!earlier);
        QVERIFY(controller);
        QCOMPARE(controller->getView(), later);
        delete later->getQtWidget();
        QVERIFY(!controller);
    }

    void viewLetsGoOfItsController()
    {
        BaseView *const view = makeView();
        const QPointer<BaseViewController> controller = new BaseViewController(view);
        view->setViewController(controller);
        QCOMPARE(controller->weak_from_this().use_count(), 1L);
        view->setViewController(nullptr);
        QVERIFY(!controller);
        QCOMPARE(view->getViewController(), nullptr);
        delete view->getQtWidget();
    }

    void commandsControllerHasOneOwnerCount()
    {
        BaseView *const view = makeView();
        auto *const controller = new CmdsViewController(view);
        const std::shared_ptr<CmdsViewController> shared = controller->shared_from_this();
        const auto manager = controller->CmdMgr::shared_from_this();
        QCOMPARE(shared.get(), controller);
        QCOMPARE(manager.get(), controller);
        QCOMPARE(shared.use_count(), 3L);
        delete view->getQtWidget();
        QCOMPARE(shared.use_count(), 2L);
    }
};

LUMO_TEST_MAIN(TestBaseView)
#include "tst_baseview.moc"
