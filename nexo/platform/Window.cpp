#include "nexo/platform/Window.h"

// The destructors stand here so that each class has its virtual table in this library alone.
CWnd::~CWnd() = default;
CMenu::~CMenu() = default;
CMFCToolBarButton::~CMFCToolBarButton() = default;
CMFCToolBar::~CMFCToolBar() = default;
