// The add-on's dialogs as a person works them on the page beyond the key frame list: a modal
// dialog that takes the input, radio buttons, a spin field's arrows, a dialog's menu toggles, the
// keyboard's mnemonics, Help, and the macro recorder's switch. Labels are the add-on's own
// (keyframe/ui/DialogMain.cpp, DialogTimeAnimationOptions.cpp).

import assert from 'node:assert/strict';
import { before, describe, it } from 'node:test';

import { assertEventually, button, dialog, listLines, openKeyFrames, useStudio } from './person.mjs';

const TIME_OPTIONS = 'Time Animation Options';

// Opens a dialog menu and gives the popup's entries as "label=checked" for its toggles.
async function menuToggles(keyFrames, menu) {
    await keyFrames.locator('.dialog-menubar').getByRole('button', { name: menu, exact: true }).click();
    return keyFrames.locator('.dialog-menubar [role=menuitemcheckbox]').evaluateAll(
        (entries) => Object.fromEntries(entries.map((e) => [e.textContent, e.getAttribute('aria-checked') === 'true'])));
}

describe('dialogs', () => {
    const session = useStudio();
    let page;
    let keyFrames;

    before(async () => {
        ({ page } = session);
        keyFrames = await openKeyFrames(page);
    });

    it('presses a button with Alt and its mnemonic letter', async () => {
        await keyFrames.getByRole('listbox').focus();
        await page.keyboard.press('Alt+a');
        await assertEventually(async () => assert.deepEqual(await listLines(keyFrames), ['View 1']));
    });

    it('flips a menu toggle of the dialog, and Esc closes its menu', async () => {
        assert.equal((await menuToggles(keyFrames, 'Options'))['Fade In'], false);
        await keyFrames.locator('.dialog-menubar').getByRole('menuitemcheckbox', { name: 'Fade In', exact: true }).click();
        await assertEventually(async () => {
            const toggles = await menuToggles(keyFrames, 'Options');
            await page.keyboard.press('Escape');
            assert.equal(toggles['Fade In'], true);
        });
        assert.equal(await keyFrames.locator('.menu-popup').count(), 0);
    });

    it('gives a modal dialog the input until its OK', async () => {
        await keyFrames.locator('.dialog-menubar').getByRole('button', { name: 'Options', exact: true }).click();
        await keyFrames.locator('.dialog-menubar').getByRole('menuitem', { name: 'Time Animation Options...', exact: true }).click();
        const options = dialog(page, TIME_OPTIONS);
        await options.waitFor();
        assert.equal(await options.getAttribute('aria-modal'), 'true');
        // The focus is in it, stays in it on Tab, and the rest of the page takes no input.
        const focusedDialog = () => page.evaluate(() => document.activeElement.closest('.dialog')?.querySelector('.dialog-title')?.textContent);
        assert.equal(await focusedDialog(), TIME_OPTIONS);
        for (let i = 0; i < 10; ++i) await page.keyboard.press('Tab');
        assert.equal(await focusedDialog(), TIME_OPTIONS);
        assert.equal(await page.locator('#app').evaluate((app) => app.inert), true);
        assert.equal(await keyFrames.evaluate((d) => d.inert), true);

        // Loop lets Num Cycles be used; its up arrow counts one more.
        await options.getByRole('radio', { name: 'Loop', exact: true }).click();
        await assertEventually(async () => assert.equal(await options.getByRole('radio', { name: 'Loop', exact: true }).isChecked(), true));
        const cycles = options.getByRole('textbox', { name: 'Num Cycles:', exact: true });
        await assertEventually(async () => assert.equal(await cycles.isEnabled(), true));
        const before = Number(await cycles.inputValue());
        await options.getByRole('button', { name: 'Up', exact: true }).click();
        await assertEventually(async () => assert.equal(Number(await cycles.inputValue()), before + 1));

        // OK turns time animation on (docs/dialogs.md) and gives the input back.
        await button(options, 'OK').click();
        await options.waitFor({ state: 'detached' });
        assert.equal(await page.locator('#app').evaluate((app) => app.inert), false);
        const toggles = await menuToggles(keyFrames, 'Options');
        await page.keyboard.press('Escape');
        assert.equal(toggles['Animate Time Concurrently'], true);
    });

    it('opens the dialog\'s help in a new tab', async () => {
        const [help] = await Promise.all([page.waitForEvent('popup'), button(keyFrames, 'Help').click()]);
        await help.waitForLoadState();
        assert.match(help.url(), /section=Key%20Frame%20Animation/);
        await help.close();
    });

    it('turns the macro recorder on and shows it', async () => {
        assert.equal(await page.locator('#record').isChecked(), false);
        await page.locator('#record').click();
        await assertEventually(async () => assert.equal(await page.locator('#record').isChecked(), true));
        assert.equal(await page.evaluate(() => window.studio.state.recording), true);
    });
});
