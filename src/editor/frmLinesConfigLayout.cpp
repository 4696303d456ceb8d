#include "editor/frmLinesConfig.h"

#include <algorithm>

namespace varnow {

namespace {

constexpr float margin = 120;  // around the window and between its parts
constexpr float labelGap = 30; // between a label and its box
constexpr float minimumWidth = 7700;
constexpr float minimumHeight = 7900;

/// Moves the control so that its middle is at this height.
void centre(ui::Control &control, float left, float centreLine)
{
    control.move(left, centreLine - control.height() / 2);
}

float pairWidth(const ui::Control &label, const ui::Control &box)
{
    return label.width() + labelGap + box.width();
}

template <class... Controls> float greatestHeight(const Controls &...controls)
{
    float greatest = 0;
    const auto take = [&greatest](const auto &control) { greatest = std::max(greatest, control.height()); };
    (std::for_each(controls.begin(), controls.end(), take), ...);
    return greatest;
}

} // namespace

void frmLinesConfig::layOut()
{
    if (isMinimised())
        return;
    tsLines.setPainting(false);
    std::vector<ui::Control *> offPage;
    for (ui::Control *control : controls()) {
        if (control->left() < 0)
            offPage.push_back(control);
    }
    enforceMinimumSize(minimumWidth, minimumHeight);

    const float topGap = (Text1[0].height() - Label1[0].height()) / 2;
    const float group = (innerWidth() - (cboConfig.width() + Label3.width() + labelGap)) / 2;
    Label3.move(group, topGap + margin);
    cboConfig.move(group + Label3.width() + labelGap, margin);

    const float wide = innerWidth() - 2 * margin;
    const float band =
        (innerHeight() - (cboConfig.height() + cmdRefresh.height() + cmdExit.height() + 6 * margin)) / 2;
    tsLines.move({margin, cboConfig.height() + 2 * margin, wide, band});

    const float firstRow = tsLines.top() + tsLines.height() + margin;
    cmdClear.move(margin, firstRow);
    cmdAdd.move(cmdClear.left() + cmdClear.width(), firstRow);
    cmdDelete.move(cmdAdd.left() + cmdAdd.width(), firstRow);
    cmdRefresh.move(innerWidth() - (cmdRefresh.width() + margin), firstRow);

    tvLines.move({margin, cmdClear.top() + cmdClear.height() + margin, wide, band});

    const float secondRow = tvLines.top() + tvLines.height() + margin;
    cmdReload.move(margin, secondRow);
    cmdSave.move(cmdReload.left() + cmdReload.width(), secondRow);
    cmdExit.move(innerWidth() - (cmdExit.width() + margin), secondRow);

    layOutLinesPage();
    layOutFieldsPage();
    for (ui::Control *control : offPage) {
        if (control->left() > 0)
            control->move(control->left() - ui::TabControl::offPage, control->top());
    }
    tsLines.setPainting(true);
}

void frmLinesConfig::layOutLinesPage()
{
    float pairs = 0;
    for (std::size_t i = 0; i < Label1.size(); ++i)
        pairs += pairWidth(Label1[i], Text1[i]);
    const float gap = (tsLines.width() - pairs) / 4;

    const float strip = tsLines.tabHeight();
    const float row = greatestHeight(Label1, Text1);
    const float centreLine = (tsLines.height() - (strip + row)) / 2 + strip + row / 2;
    float left = gap;
    for (std::size_t i = 0; i < Label1.size(); ++i) {
        centre(Label1[i], left, centreLine);
        centre(Text1[i], left + Label1[i].width() + labelGap, centreLine);
        left += pairWidth(Label1[i], Text1[i]) + gap;
    }
}

void frmLinesConfig::layOutFieldsPage()
{
    const float firstColumn = pairWidth(Label2[3], Text2[2]);
    const float secondColumn = pairWidth(Label2[6], Text2[4]);
    const float gap = (tsLines.width() - (firstColumn + secondColumn + fraFixedField.width())) / 4;
    const std::array<float, 2> labelLeft{gap, 2 * gap + firstColumn};
    const std::array<float, 2> boxLeft{labelLeft[0] + Label2[0].width() + labelGap,
                                       labelLeft[1] + Label2[4].width() + labelGap};

    const float strip = tsLines.tabHeight();
    const float row = std::max(greatestHeight(Label2, Combo2), greatestHeight(Text2));
    const float rowGap = (tsLines.height() - (4 * row + strip)) / 5;
    const auto centreLine = [&](std::size_t j) {
        const auto n = static_cast<float>(j);
        return strip + (n + 1) * rowGap + n * row + row / 2;
    };
    const std::array<ui::Control *, 8> boxes{&Text2[0],  &Text2[1], &Combo2[0], &Text2[2],
                                             &Combo2[1], &Text2[3], &Text2[4],  &Text2[5]};
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        centre(Label2[i], labelLeft[i / 4], centreLine(i % 4));
        centre(*boxes[i], boxLeft[i / 4], centreLine(i % 4));
    }
    fraFixedField.move(3 * gap + firstColumn + secondColumn, centreLine(0) - 250);
}

} // namespace varnow
