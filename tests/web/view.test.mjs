// The 3D view as a person uses it: the picture shows, the mouse turns, moves and zooms the view,
// and Fit brings the data back into view. Asserts on the view status the page shows under the
// view (the host's `view` state), never on pixels.

import assert from 'node:assert/strict';
import { before, describe, it } from 'node:test';

import { assertEventually, dragView, settledStatus, useStudio, viewPoint, viewStatus } from './person.mjs';

const close = (a, b) => Math.abs(a - b) <= 1e-6 * Math.max(1, Math.abs(a), Math.abs(b));

describe('the view', () => {
    const session = useStudio();
    let studio;
    let page;

    before(async () => {
        ({ studio, page } = session);
    });

    it('shows a picture once opened with the token', async () => {
        assert.ok(await page.evaluate(() => window.studio.connected));
        assert.ok(await page.evaluate(() => window.studio.framesDrawn) >= 1);
        const canvas = await page.locator('canvas#view').boundingBox();
        assert.ok(canvas.width > 100 && canvas.height > 100);
        // The address with the token was exchanged for a cookie and left.
        assert.ok(!page.url().includes('token='), page.url());
        const status = await viewStatus(page);
        for (const field of ['psi', 'theta', 'alpha', 'width']) assert.ok(Number.isFinite(status[field]), field);
    });

    it('turns the view with a left drag', async () => {
        const before = await viewStatus(page);
        const drawn = await page.evaluate(() => window.studio.framesDrawn);
        await dragView(page, { dx: 150, dy: 80 });
        await assertEventually(async () => {
            const after = await viewStatus(page);
            assert.ok(!close(after.psi, before.psi) || !close(after.theta, before.theta), JSON.stringify(after));
        });
        await assertEventually(async () => assert.ok(await page.evaluate(() => window.studio.framesDrawn) > drawn));
        assert.ok(await page.evaluate(() => window.studio.latencies.length) >= 1);
    });

    it('moves the view with Shift and a left drag, keeping the angles', async () => {
        const before = await viewStatus(page);
        await dragView(page, { dx: 100, dy: -60, modifiers: ['Shift'] });
        await assertEventually(async () => {
            const after = await viewStatus(page);
            assert.ok(after.position.some((p, i) => !close(p, before.position[i])), JSON.stringify(after));
        });
        const after = await viewStatus(page);
        assert.ok(close(after.psi, before.psi) && close(after.theta, before.theta) && close(after.alpha, before.alpha),
            `${JSON.stringify(before)} -> ${JSON.stringify(after)}`);
    });

    it('zooms with the wheel', async () => {
        const before = await viewStatus(page);
        const point = await viewPoint(page);
        await page.mouse.move(point.x, point.y);
        await page.mouse.wheel(0, 300);
        await assertEventually(async () => {
            const after = await viewStatus(page);
            assert.ok(after.width > before.width, `${before.width} -> ${after.width}`);
        });
    });

    it('fits the view to the data again with Fit', async () => {
        await page.getByRole('button', { name: 'Fit', exact: true }).click();
        const fitted = await settledStatus(page);
        // Moved and zoomed away, Fit gives the same width and place again.
        await dragView(page, { dx: 90, dy: 40, modifiers: ['Shift'] });
        const point = await viewPoint(page);
        await page.mouse.move(point.x, point.y);
        await page.mouse.wheel(0, -400);
        await assertEventually(async () => assert.ok(!close((await viewStatus(page)).width, fitted.width)));
        await page.getByRole('button', { name: 'Fit', exact: true }).click();
        await assertEventually(async () => {
            const again = await viewStatus(page);
            assert.ok(close(again.width, fitted.width), `${fitted.width} -> ${again.width}`);
            assert.ok(again.position.every((p, i) => close(p, fitted.position[i])), JSON.stringify(again));
        });
    });

    it('says Disconnected when the host goes', async () => {
        assert.equal(await page.locator('#disconnected').isVisible(), false);
        await studio.stop();
        await page.locator('#disconnected').waitFor({ state: 'visible' });
        assert.equal(await page.evaluate(() => window.studio.connected), false);
    });
});
