// Looks at pages of the manual in a browser: layout, contrast, names, landmarks, focus, keyboard, theme, and what is left
// without scripts. usage: TAVIDOC_SITE_PROGRAM=PROGRAM node --test pages.test.mjs
import assert from "node:assert/strict";
import { spawnSync } from "node:child_process";
import { existsSync, mkdtempSync, rmSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { after, before, test } from "node:test";
import { chromium, eventually } from "./browser.mjs";
import * as checks from "./page_checks.mjs";

const folder = mkdtempSync(join(tmpdir(), "tavidoc-site-"));
const site = `file://${folder}/site/`;
const project = new URL("../../docs/manual/site.toml", import.meta.url).pathname;
const pages = ["index.htm", "start.htm", "tables.htm", "text.htm", "listings.htm", "commands.htm", "icons.htm",
    "menus.htm", "headers-example.htm", "coming.htm", "ring-buffer/ring_buffer_h.htm", "ring-buffer/ring_buffer_write.htm",
    "contents.htm", "names.htm", "search.htm"];
const widths = [400, 768, 1280];
let browser;

before(async () => {
    spawnSync(process.env.TAVIDOC_SITE_PROGRAM, ["build", project, "-o", join(folder, "site"), "--quiet"]);
    for (const page of pages) // of a page that is missing, a browser shows one of its own
        assert.ok(existsSync(join(folder, "site", page)), page);
    browser = await chromium();
});
after(async () => {
    await browser.close();
    rmSync(folder, { recursive: true });
});

const run = (check, ...values) => browser.evaluate(`(${check})(${values.map((value) => JSON.stringify(value)).join()})`);

for (const width of widths) {
    test(`no page scrolls sideways at ${width} pixels, with or without scripts`, async () => {
        for (const script of [true, false]) {
            await browser.setUp(width, { script });
            for (const page of pages) {
                await browser.goto(site + page);
                const { cssContentSize, cssLayoutViewport } = await browser.call("Page.getLayoutMetrics");
                assert.ok(cssContentSize.width <= cssLayoutViewport.clientWidth + 1, `${page}: ${cssContentSize.width}`);
            }
        }
    });
}

test("long names push nothing off the screen", async () => {
    const names = ["extraordinarily_long_name_of_a_namespace", "TemperatureRegulatorWithProportionalControl", "Builder", "setCoefficient"];
    const documented = (declaration) => `/*!\n * What \\this is for, in a few words.\n */\n${declaration}`;
    writeFileSync(join(folder, "long.h"), documented(`namespace ${names[0]} {\n`) + documented(`class ${names[1]}\n{\npublic:\n`) +
        documented(`class ${names[2]}\n{\npublic:\n`) + documented(`void ${names[3]}(double value);\n`) + "};\n};\n}\n");
    spawnSync(process.env.TAVIDOC_SITE_PROGRAM, ["build", "long.h", "-o", "long", "--quiet"], { cwd: folder });
    for (const width of widths) {
        await browser.setUp(width);
        for (const page of ["long_h.htm", ...names.map((_, index) => names.slice(0, index + 1).join(".") + ".htm")]) {
            assert.ok(existsSync(join(folder, "long", page)), page);
            await browser.goto(`file://${folder}/long/${page}`);
            const { cssContentSize, cssLayoutViewport } = await browser.call("Page.getLayoutMetrics");
            assert.ok(cssContentSize.width <= cssLayoutViewport.clientWidth + 1, `${page}: ${cssContentSize.width}`);
            if (page === "long_h.htm") // the summary: whoever reads its texts need not scroll
                assert.ok(await browser.evaluate(`(box => box.scrollWidth <= box.clientWidth)(document.querySelector(".box"))`), `at ${width}`);
            const shown = await browser.evaluate(`document.querySelector(".contents a[aria-current]").textContent`);
            assert.ok(names.includes(shown) || page === "long_h.htm", shown); // without what is shown above
        }
    }
});

for (const theme of ["light", "dark"]) {
    test(`text has a contrast of 4.5 to 1 in the ${theme} theme`, async () => {
        await browser.setUp(1280, { theme });
        for (const page of pages) {
            await browser.goto(site + page);
            assert.deepEqual(await run(checks.weakTexts, 4.5), [], page);
        }
    });
}

test("everything has a name, and landmarks are as designed", async () => {
    await browser.setUp(1280);
    for (const page of pages) {
        await browser.goto(site + page);
        assert.deepEqual(await run(checks.unnamed), [], page);
        const { banner, main, search, footer, navigation } = await run(checks.landmarks);
        assert.deepEqual([banner, main, search, footer], [1, 1, 1, 1], page);
        assert.deepEqual([...new Set(navigation)], navigation, `${page}: two landmarks of one name`);
        assert.ok(navigation.includes("Breadcrumbs") && navigation.includes("Contents"), page);
        const { h1, current, language } = await run(checks.facts);
        assert.deepEqual([h1, current, language], [1, page === "search.htm" ? 0 : 1, "en"], page);
    }
});

test("the focus goes from the top to the bottom and is visible", async () => {
    await browser.setUp(1280);
    await browser.goto(site + "ring-buffer/ring_buffer_h.htm");
    const seen = [];
    for (let count = 0; count < 60; ++count) {
        await browser.press("Tab");
        const focus = await run(checks.focused);
        if (!focus)
            break;
        assert.ok(focus.isVisible, `${focus.name} is not visible`);
        assert.ok(focus.hasMark, `${focus.name} has no mark`);
        seen.push(focus.region);
    }
    const order = [...new Set(seen)];
    assert.deepEqual(order.slice(0, 6), ["skip", "breadcrumbs", "search", "theme", "contents", "main"]);
});

test("the skip link leads to the text", async () => {
    await browser.setUp(1280);
    await browser.goto(site + "start.htm");
    await browser.press("Tab");
    await browser.press("Enter");
    await browser.press("Tab");
    assert.equal((await run(checks.focused)).region, "main");
});

test("on a phone the contents open without a script", async () => {
    await browser.setUp(400, { script: false });
    await browser.goto(site + "start.htm");
    const height = async () => (await browser.call("Page.getLayoutMetrics")).cssContentSize.height;
    const closed = await height();
    for (let count = 0; count < 8; ++count) {
        await browser.press("Tab");
        const { nodes } = await browser.call("Accessibility.getFullAXTree");
        const focus = nodes.find((node) => node.properties?.some(({ name, value }) => name === "focused" && value.value) &&
            node.role.value !== "RootWebArea");
        if (focus?.name.value === "Contents")
            break;
    }
    await browser.press("Enter");
    assert.ok(await eventually(async () => await height() > closed + 200));
});

test("the theme is switched, kept, and set before the page is shown", async () => {
    await browser.setUp(1280, { theme: "light" });
    await browser.goto(site + "start.htm");
    const state = () => browser.evaluate(`[document.documentElement.dataset.theme,
        document.getElementById("site-theme").getAttribute("aria-label"), getComputedStyle(document.documentElement).backgroundColor]`);
    const [, , white] = await state();
    const click = () => browser.evaluate(`document.getElementById("site-theme").click()`);
    await click();
    await click();
    const [theme, label, black] = await state();
    assert.deepEqual([theme, label], ["dark", "Theme: dark"]);
    assert.notEqual(black, white);
    await browser.goto(site + "tables.htm");
    assert.equal((await state())[0], "dark");
    assert.ok(await browser.evaluate(`!document.querySelector("script[src$='site.js']").defer`));
    await click();
    assert.equal((await state())[2], white, "as the system");
});

test("a listing is copied, and the keyboard scrolls what is too wide", async () => {
    await browser.setUp(400);
    await browser.goto(site + "headers-example.htm");
    await browser.call("Browser.grantPermissions", { permissions: ["clipboardReadWrite"] });
    await browser.evaluate(`document.querySelector(".copy").focus()`);
    await browser.press("Enter");
    assert.ok(await eventually(() => browser.evaluate(`document.querySelector(".copy").textContent === "Copied"`)));
    const wide = await run(checks.scrollableBoxes);
    assert.ok(wide.length > 0);
    for (const box of wide)
        assert.deepEqual([box.tabIndex, box.role, box.name !== ""], [0, "group", true]);
});

test("nothing moves for readers who want less motion", async () => {
    await browser.setUp(1280);
    await browser.call("Emulation.setEmulatedMedia", { features: [{ name: "prefers-reduced-motion", value: "reduce" }] });
    await browser.goto(site + "start.htm");
    assert.deepEqual(await run(checks.moving), []);
});

test("print shows the text alone, and nothing of it is wider than the paper", async () => {
    await browser.setUp(650, { media: "print", theme: "dark" }); // the text of a sheet of A4
    for (const page of pages) {
        await browser.goto(site + page);
        assert.deepEqual(await run(checks.shownBesideText), [], page);
        assert.deepEqual(await run(checks.tooWide), [], page);
    }
    assert.equal(await browser.evaluate(`getComputedStyle(document.querySelector("main")).colorScheme`), "light");
});
