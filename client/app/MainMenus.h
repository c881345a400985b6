#pragma once

class MainWindow;

/// Fills a main window's menu bar; the actions belong to the window.
class MainMenus
{
public:
    explicit MainMenus(MainWindow &window)
        : m_window(window)
    { }

    void build();

private:
    void buildFileMenu();
    void buildViewMenu();
    void buildLinkMenu();
    void buildHelpMenu();

    MainWindow &m_window;
};
