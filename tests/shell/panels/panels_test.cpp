// SPDX-License-Identifier: MIT
//
// The panels of layers and of properties, as the user has them beside the plots.

#include "core/settings_value.h"
#include "drawing/layer_list.h"
#include "edit/history/undo.h"
#include "edit/marks/plot_views.h"
#include "orientation/projection.h"
#include "shell/controls/picture_box.h"
#include "shell/panels/layer_panel.h"
#include "shell/panels/property_panel.h"
#include "support/main_window_test.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>

#include <algorithm>

namespace quandrel {
namespace {

class PanelsOfWindow : public MainWindowTest {
protected:
    void SetUp() override {
        MainWindowTest::SetUp();
        slot = OpenFile("a.txt");
        Press("mnuViewLayers");
        Press("mnuViewProperties");
        layers = main->findChild<LayerPanel*>("panLayers");
        properties = main->findChild<PropertyPanel*>("panProperties");
        ASSERT_NE(layers, nullptr);
        ASSERT_NE(properties, nullptr);
    }

    [[nodiscard]] std::vector<FigureLayer> List() const { return LayersOf(PlotOf(slot)); }

    /// The place of the main rows as symbols.
    [[nodiscard]] std::size_t Symbols() const {
        const std::vector<FigureLayer> list = List();
        const auto found = std::ranges::find_if(list, [](const FigureLayer& layer) {
            return layer.LayerOf == kLayerOfMainRows && layer.LayerShow == kShowSymbols;
        });
        return static_cast<std::size_t>(found - list.begin());
    }

    /// The line of a layer, which becomes the current one.
    QTreeWidgetItem& LineOf(std::size_t place) const {
        layers->ChoosePlace(place);
        return *layers->treLayers->currentItem();
    }

    int slot = 0;
    LayerPanel* layers = nullptr;
    PropertyPanel* properties = nullptr;
};

TEST_F(PanelsOfWindow, AreListedInTheViewMenuAndKept) {
    EXPECT_TRUE(Action("mnuViewLayers").isChecked());
    EXPECT_TRUE(layers->isVisible());
    Press("mnuViewLayers");
    EXPECT_FALSE(layers->isVisible());
    EXPECT_FALSE(Action("mnuViewLayers").isChecked());
    main->close();
    EXPECT_FALSE(gSettings.windows.layerPanel);
    EXPECT_TRUE(gSettings.windows.propertyPanel);
}

TEST_F(PanelsOfWindow, LayersCanBeDroppedBetweenLayersAlone) {
    const QTreeWidgetItem& line = LineOf(Symbols());
    EXPECT_TRUE(line.flags().testFlag(Qt::ItemIsDragEnabled));
    EXPECT_TRUE(line.parent()->flags().testFlag(Qt::ItemIsDropEnabled)) << "between its lines";
    const QTreeWidgetItem& data = *layers->treLayers->topLevelItem(1);
    EXPECT_FALSE(data.flags().testFlag(Qt::ItemIsDropEnabled));
    EXPECT_FALSE(data.child(0)->flags().testFlag(Qt::ItemIsDropEnabled));
}

TEST_F(PanelsOfWindow, ATickHidesALayer) {
    QTreeWidgetItem& line = LineOf(Symbols());
    EXPECT_FALSE(line.icon(0).isNull()) << "its sign in the legend";
    EXPECT_EQ(line.text(1), "3");
    line.setCheckState(0, Qt::Unchecked);
    QApplication::processEvents();
    EXPECT_EQ(List()[Symbols()].LayerHidden, kTrue);
    EXPECT_EQ(LineOf(Symbols()).checkState(0), Qt::Unchecked);
    UndoLastEdit();
    EXPECT_EQ(List()[Symbols()].LayerHidden, 0);
}

TEST_F(PanelsOfWindow, ANameIsThatOfTheLegend) {
    LineOf(Symbols()).setText(0, "Poles to bedding");
    QApplication::processEvents();
    EXPECT_EQ(List()[Symbols()].LayerName, "Poles to bedding");
    EXPECT_EQ(LineOf(Symbols()).text(0), "Poles to bedding");
    EXPECT_EQ(properties->txtName->text(), "Poles to bedding");
}

TEST_F(PanelsOfWindow, F2NamesALayer) {
    LineOf(Symbols());
    layers->treLayers->setFocus();
    QTest::keyClick(layers->treLayers, Qt::Key_F2);
    auto* editor = layers->treLayers->findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    editor->setText("Beds");
    QTest::keyClick(editor, Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_EQ(List()[Symbols()].LayerName, "Beds");
}

TEST_F(PanelsOfWindow, KeysMoveAndRemoveALayer) {
    const std::size_t place = Symbols();
    LineOf(place);
    QTest::keyClick(layers->treLayers, Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(Symbols(), place + 1);
    QTest::keyClick(layers->treLayers, Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(Symbols(), place);
    const std::size_t count = List().size();
    QTest::keyClick(layers->treLayers, Qt::Key_Delete);
    EXPECT_EQ(List().size(), count - 1);
    EXPECT_EQ(Symbols(), List().size()) << "it is gone";
    EXPECT_EQ(RecordOf(slot).NumData, 3) << "its rows stay";
}

TEST_F(PanelsOfWindow, PropertiesChangeTheLayerThatIsChosen) {
    LineOf(Symbols());
    ASSERT_TRUE(properties->spnSize->isVisible());
    EXPECT_FALSE(properties->cboPalette->isVisible()) << "symbols have no palette";
    EXPECT_EQ(properties->spnSize->text(), "as the style");
    properties->spnSize->setValue(2.5);
    EXPECT_EQ(List()[Symbols()].LayerSize, 2.5);
    properties->cboShape->setCurrentIndex(4);
    Q_EMIT properties->cboShape->activated(4);
    EXPECT_EQ(List()[Symbols()].LayerSymbol, 4);
    UndoLastEdit();
    UndoLastEdit();
    main->UpdatePlotState();
    EXPECT_EQ(List()[Symbols()].LayerSize, kAsStyle);
    LineOf(Symbols());
    EXPECT_EQ(properties->spnSize->text(), "as the style");
}

TEST_F(PanelsOfWindow, ADragOfTheSliderIsOneStep) {
    LineOf(Symbols());
    properties->sldOpacity->setSliderDown(true);
    for (const int value : {90, 70, 50}) {
        properties->sldOpacity->setValue(value);
    }
    properties->sldOpacity->setSliderDown(false);
    EXPECT_EQ(List()[Symbols()].LayerOpacity, 0.5);
    UndoLastEdit();
    EXPECT_EQ(List()[Symbols()].LayerOpacity, kAsStyle);
}

TEST_F(PanelsOfWindow, CtrlAddsTheLayersOfASymbolButton) {
    const std::size_t count = List().size();
    QTest::mouseClick(&ToolButton("grpSymbolButton_0"), Qt::LeftButton, Qt::ControlModifier);
    EXPECT_EQ(List().size(), count + 1) << "great circles and symbols";
    QTest::mouseClick(&ToolButton("grpSymbolButton_0"), Qt::LeftButton, Qt::ControlModifier);
    EXPECT_EQ(List().size(), count);
}

TEST_F(PanelsOfWindow, TheButtonsActOnTheDataThatAreChosen) {
    prompts.QueueOpenPath(WriteFile("b.txt", "80\t10\n85\t100\n"));
    Press("mnuFileLoad_2");
    QTreeWidgetItem* data = layers->treLayers->topLevelItem(1);
    ASSERT_EQ(data->childCount(), 3) << "main rows, overlay, selected rows";
    layers->treLayers->setCurrentItem(data->child(1));
    QApplication::processEvents();
    QTest::mouseClick(&ToolButton("grpSymbolButton_0"), Qt::LeftButton);
    EXPECT_EQ(RecordOf(slot).OverlayKind[1], kOverlayGreatCircles);
    EXPECT_NE(RecordOf(slot).PlotSymbolMode, kGreatCircles);
}

TEST_F(PanelsOfWindow, LabelsAreTickedForALayer) {
    LineOf(Symbols());
    auto* labels = properties->chkLabels;
    ASSERT_TRUE(labels->isVisible());
    EXPECT_FALSE(labels->isChecked());
    labels->click();
    EXPECT_EQ(List()[Symbols()].LayerLabels, 1);
    EXPECT_TRUE(labels->isChecked());
    UndoLastEdit();
    EXPECT_EQ(List()[Symbols()].LayerLabels, kAsStyle);
}

class PointingWithPanels : public PanelsOfWindow {
protected:
    void SetUp() override {
        PanelsOfWindow::SetUp();
        Press("mnuViewLayers");
        Press("mnuViewProperties");
        QApplication::processEvents();
    }

    [[nodiscard]] frmPlotForms& Form() const { return FormOfSlot(slot); }

    /// The pixel of a point in plot units.
    [[nodiscard]] QPoint PixelOf(Point at) const {
        const QSize size = Form().picStereoArea->PictureSize();
        const double x = (at.x - kPlotScale.left) / (kPlotScale.right - kPlotScale.left);
        const double y = (at.y - kPlotScale.top) / (kPlotScale.bottom - kPlotScale.top);
        return QPointF(x * size.width(), y * size.height()).toPoint();
    }

    [[nodiscard]] Point FirstRow() const {
        const RowTable& table = PlotOf(slot).table;
        return {static_cast<double>(table.x[0]), static_cast<double>(table.y[0])};
    }
};

TEST_F(PointingWithPanels, ADoubleClickOpensThePropertiesOfWhatIsThere) {
    const QPoint row = PixelOf(FirstRow());
    QTest::mouseClick(Form().picStereoArea, Qt::LeftButton, {}, row);
    EXPECT_FALSE(properties->isVisible()) << "a single click opens nothing";
    QTest::mouseDClick(Form().picStereoArea, Qt::LeftButton, {}, row);
    ASSERT_TRUE(properties->isVisible());
    EXPECT_TRUE(properties->spnSize->isVisible());
    EXPECT_EQ(layers->Place(), Symbols());
    EXPECT_FALSE(layers->isVisible()) << "the other panel stays closed";
    QTest::mouseDClick(Form().picStereoArea, Qt::LeftButton, {}, PixelOf({kNetRadius, 0}));
    EXPECT_EQ(layers->Place(), 0U) << "the rim is that of the net";
}

TEST_F(PointingWithPanels, AClickChoosesALayerInAnOpenPanel) {
    Press("mnuViewProperties");
    QApplication::processEvents();
    QTest::mouseClick(Form().picStereoArea, Qt::LeftButton, {}, PixelOf({0, kNetRadius}));
    EXPECT_EQ(layers->Place(), 0U);
    QTest::mouseClick(Form().picStereoArea, Qt::LeftButton, {}, PixelOf(FirstRow()));
    EXPECT_EQ(layers->Place(), Symbols());
    properties->spnSize->setValue(3);
    EXPECT_EQ(List()[Symbols()].LayerSize, 3) << "changed while the panel of layers is closed";
}

TEST_F(PointingWithPanels, ADoubleClickOnTheLegendOpensItsLayer) {
    RecordFigure figure = RecordOf(slot);
    figure.StyleName = kScreenStyle;
    ChangeFigure(slot, figure);
    QApplication::processEvents();
    QTest::mouseDClick(Form().picLegendBox, Qt::LeftButton, {}, QPoint(20, 12));
    ASSERT_TRUE(properties->isVisible());
    EXPECT_EQ(layers->Place(), Symbols());
}

TEST_F(PointingWithPanels, ADoubleClickOnTheLegendOfARoseTypesItsWords) {
    RecordFigure figure = ActiveRecord();
    figure.StyleName = kScreenStyle;
    ChangeFigure(gActivePlot, figure);
    Press("mnuPlotType_2");
    layers->hide();
    QTest::mouseDClick(Form().picLegendBox, Qt::LeftButton, {}, QPoint(20, 12));
    EXPECT_TRUE(layers->isVisible());
    EXPECT_TRUE(layers->treLayers->IsEditing());
    EXPECT_EQ(layers->treLayers->currentItem(), layers->treLayers->topLevelItem(0)->child(0));
}

TEST_F(PanelsOfWindow, ARoseHasNoLayersButEntriesThatCanBeRenamed) {
    Press("mnuPlotType_2");
    EXPECT_FALSE(properties->spnSize->isVisible());
    ASSERT_EQ(layers->treLayers->topLevelItemCount(), 1);
    QTreeWidgetItem* petals = layers->treLayers->topLevelItem(0)->child(0);
    const QString words = petals->text(0);
    petals->setText(0, "Strikes of faults");
    QCoreApplication::processEvents();
    ASSERT_EQ(ActiveRecord().RoseNames.size(), 1U);
    EXPECT_EQ(ActiveRecord().RoseNames[0], (RoseName{kRosePetals, 0, "Strikes of faults"}));
    EXPECT_EQ(layers->treLayers->topLevelItem(0)->child(0)->text(0), "Strikes of faults");
    UndoLastEdit();
    EXPECT_TRUE(ActiveRecord().RoseNames.empty());
    layers->Follow(gActivePlot);
    petals = layers->treLayers->topLevelItem(0)->child(0);
    EXPECT_EQ(petals->text(0), words);
    petals->setText(0, " ");
    QCoreApplication::processEvents();
    EXPECT_TRUE(ActiveRecord().RoseNames.empty()) << "without words they are the program's";
}

} // namespace
} // namespace quandrel
