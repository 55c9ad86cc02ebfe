// The theme switch, copy buttons, and what keyboards need to scroll boxes. Pages work without it.
(function () {
    "use strict";

    const root = document.documentElement;
    const key = "tavidoc-theme";
    const themes = { "": "as the system", light: "light", dark: "dark" };

    function storedTheme() {
        try {
            const theme = localStorage.getItem(key);
            return theme in themes ? theme : "";
        } catch {
            return ""; // storage is forbidden
        }
    }

    function setTheme(theme) {
        if (theme)
            root.dataset.theme = theme;
        else
            delete root.dataset.theme;
        const button = document.getElementById("site-theme");
        if (!button)
            return;
        button.title = "Theme: " + themes[theme];
        button.setAttribute("aria-label", button.title);
    }

    function nextTheme() {
        const names = Object.keys(themes);
        const theme = names[(names.indexOf(root.dataset.theme || "") + 1) % names.length];
        setTheme(theme);
        try {
            localStorage.setItem(key, theme);
        } catch { // the theme lasts as long as the page
        }
    }

    function copyWithSelection(element) {
        const range = document.createRange();
        range.selectNodeContents(element);
        const selection = getSelection();
        selection.removeAllRanges();
        selection.addRange(range);
        const isCopied = document.execCommand("copy");
        selection.removeAllRanges();
        return isCopied;
    }

    async function copy(button, listing) {
        let isCopied = true;
        try {
            await navigator.clipboard.writeText(listing.textContent);
        } catch {
            isCopied = copyWithSelection(listing);
        }
        button.textContent = isCopied ? "Copied" : "Not copied";
        setTimeout(() => button.textContent = "Copy", 1500);
    }

    function addCopyButton(listing) {
        const button = document.createElement("button");
        button.type = "button";
        button.className = "copy";
        button.textContent = "Copy";
        button.setAttribute("aria-live", "polite");
        button.addEventListener("click", () => copy(button, listing));
        listing.after(button);
    }

    // A box that scrolls must get the focus, so that the arrow keys scroll it.
    function markScrollable(box) {
        const scrolls = box.scrollWidth > box.clientWidth;
        if (scrolls === box.hasAttribute("tabindex"))
            return;
        const attributes = { tabindex: "0", role: "region", "aria-label": box.localName === "pre" ? "Listing" : "Table" };
        for (const [name, value] of Object.entries(attributes)) {
            if (scrolls)
                box.setAttribute(name, value);
            else
                box.removeAttribute(name);
        }
    }

    setTheme(storedTheme());
    root.classList.add("script");
    addEventListener("storage", () => setTheme(storedTheme()));
    addEventListener("DOMContentLoaded", () => {
        setTheme(storedTheme());
        document.getElementById("site-theme").addEventListener("click", nextTheme);
        document.querySelectorAll(".listing > pre").forEach(addCopyButton);
        const boxes = document.querySelectorAll(".box, .listing > pre");
        const observer = new ResizeObserver((entries) => entries.forEach((entry) => markScrollable(entry.target)));
        boxes.forEach((box) => observer.observe(box));
        const current = document.querySelector(".contents [aria-current]");
        const contents = document.querySelector(".contents");
        if (current)
            contents.scrollTop = current.offsetTop - contents.clientHeight / 2;
    });
})();
